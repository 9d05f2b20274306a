#include "dialogs/qt/link_opener.h"

#include <QDesktopServices>
#include <QUrl>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace nautrix {
namespace {

QtMessageHandler g_outer_handler = nullptr;

// Qt's warnings while the link is handed on are the opener's affair; worse
// than warnings goes on its way.
void KeepWarnings(QtMsgType type, const QMessageLogContext& context, const QString& message) {
  if (type == QtDebugMsg || type == QtInfoMsg || type == QtWarningMsg) return;
  if (g_outer_handler) g_outer_handler(type, context, message);
}

// The standard output and error point at /dev/null while it lives, so that
// a program started meanwhile inherits them there.
class Hushed {
 public:
  Hushed() {
    std::fflush(stdout);
    std::fflush(stderr);
    const int null = open("/dev/null", O_WRONLY | O_CLOEXEC);
    for (int fd : {1, 2}) {
      saved_[fd - 1] = fcntl(fd, F_DUPFD_CLOEXEC, 3);
      if (null >= 0) dup2(null, fd);
    }
    if (null >= 0) close(null);
    g_outer_handler = qInstallMessageHandler(KeepWarnings);
  }
  ~Hushed() {
    qInstallMessageHandler(g_outer_handler);
    for (int fd : {1, 2}) {
      if (saved_[fd - 1] < 0) continue;
      dup2(saved_[fd - 1], fd);
      close(saved_[fd - 1]);
    }
  }
  Hushed(const Hushed&) = delete;
  Hushed& operator=(const Hushed&) = delete;

 private:
  int saved_[2];
};

}  // namespace

void OpenLink(const QString& target) {
  const Hushed quiet;
  QDesktopServices::openUrl(QUrl::fromUserInput(target));
}

}  // namespace nautrix
