// The watch for other writers of the settings file: another copy of the
// program replacing it, a hand edit in place, the file removed. The watch
// only says that something may have changed; the store then looks.
#pragma once

#include <QFileSystemWatcher>
#include <QString>
#include <functional>
#include <memory>

namespace nautrix {

class StoreWatch {
 public:
  // `changed` runs at every sign of a change of the file at `path`.
  StoreWatch(const QString& path, std::function<void()> changed);
  // True while the watch can see changes; without it every read looks.
  bool watching() const;
  // Watches the file and its folder (and a link's target and its folder),
  // those that exist now; a replaced file needs a new watch.
  void Arm();

 private:
  QString path_;
  std::function<void()> changed_;
  std::unique_ptr<QFileSystemWatcher> watcher_;  // made once an event loop can serve it
};

}  // namespace nautrix
