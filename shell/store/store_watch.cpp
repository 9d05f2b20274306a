#include "shell/store/store_watch.h"

#include <QAbstractEventDispatcher>
#include <QFileInfo>

namespace nautrix {

// A folder's watch tells of files added, removed and renamed, not of a file
// written in place: the file has a watch of its own, which ends when the
// file is replaced and is set again at the next sign.
StoreWatch::StoreWatch(const QString& path, std::function<void()> changed)
    : path_(path), changed_(std::move(changed)) {
  Arm();
}

bool StoreWatch::watching() const { return watcher_ && !watcher_->directories().isEmpty(); }

// Signs come only through an event loop; without one there is no watch.
void StoreWatch::Arm() {
  if (!watcher_) {
    if (!QAbstractEventDispatcher::instance()) return;
    watcher_ = std::make_unique<QFileSystemWatcher>();
    const auto seen = [this] {
      changed_();
      Arm();
    };
    QObject::connect(watcher_.get(), &QFileSystemWatcher::fileChanged, seen);
    QObject::connect(watcher_.get(), &QFileSystemWatcher::directoryChanged, seen);
  }
  QStringList paths = {QFileInfo(path_).absolutePath(), path_};
  const QString target = QFileInfo(path_).canonicalFilePath();
  if (!target.isEmpty() && target != QFileInfo(path_).absoluteFilePath())
    paths << QFileInfo(target).absolutePath();
  for (const QString& path : paths) {
    if (QFileInfo::exists(path) && !watcher_->files().contains(path) &&
        !watcher_->directories().contains(path))
      watcher_->addPath(path);
  }
}

}  // namespace nautrix
