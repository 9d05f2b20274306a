#include "shell/store/durable_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QThread>

namespace nautrix {

DiskCalls& Disk() {
  static DiskCalls calls{::fsync, ::rename};
  return calls;
}

FolderLock::FolderLock(const std::string& folder, int wait_ms)
    : fd_(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
  if (fd_ < 0) return;
  const QDeadlineTimer deadline(wait_ms);
  while (::flock(fd_, LOCK_EX | LOCK_NB) != 0) {
    if (errno != EWOULDBLOCK) {  // no locks on this file system: unlocked
      held_ = true;
      return;
    }
    if (deadline.hasExpired()) return;
    QThread::msleep(2);
  }
  held_ = exclusive_ = true;
}

FolderLock::~FolderLock() {
  if (fd_ >= 0) ::close(fd_);
}

// A link's target, through every link; the path itself when it is no link
// or its target is missing (the write then makes a plain file).
static std::string Target(const std::string& path) {
  char resolved[PATH_MAX];
  return ::realpath(path.c_str(), resolved) ? std::string(resolved) : path;
}

bool ReplaceFile(const std::string& path, const QByteArray& bytes, const struct stat* old) {
  const std::string target = Target(path);
  const std::string temp = target + '.' + std::to_string(::getpid());
  ::unlink(temp.c_str());  // left by a killed copy that had this process id
  const int fd = ::open(temp.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
  if (fd < 0) return false;
  bool ok = !old || ::fchmod(fd, old->st_mode & 07777) == 0;
  for (qsizetype done = 0; ok && done < bytes.size();) {
    const ssize_t n =
        ::write(fd, bytes.constData() + done, static_cast<size_t>(bytes.size() - done));
    ok = n > 0 || (n < 0 && errno == EINTR);
    done += std::max<ssize_t>(n, 0);
  }
  ok = ok && Disk().fsync(fd) == 0;
  ok = ::close(fd) == 0 && ok;
  ok = ok && Disk().rename(temp.c_str(), target.c_str()) == 0;
  if (!ok) ::unlink(temp.c_str());
  return ok;
}

// A writer's new file lives only while it holds the folder's lock: one seen
// by the holder of the lock was left by a writer that was killed.
void RemoveKilledWrites(const std::string& path) {
  const QFileInfo store(QFile::decodeName(Target(path).c_str()));
  const QString prefix = store.fileName() + '.';
  for (const QString& name : store.dir().entryList(QDir::Files | QDir::Hidden | QDir::System)) {
    bool pid = false;
    if (name.startsWith(prefix)) name.mid(prefix.size()).toUInt(&pid);
    if (pid) QFile::remove(store.dir().filePath(name));
  }
}

}  // namespace nautrix
