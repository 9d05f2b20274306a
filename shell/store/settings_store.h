// The settings store on the desktop: one INI file, "<application>.ini" in the
// user's configuration folder, shared by every running copy of the program.
//
// Reads come from memory and cost nothing more: a watch on the folder tells
// when something happened to the file, and only then does the next read look
// at it (stat), and read it again only when it really changed on disk since
// (its identity, size or times differ: every write replaces it). So a read
// shows the latest write of any copy, and of a hand edit. Where no watch can
// be set (no event loop, the folder not made yet, no inotify), every read
// looks at the file.
//
// A write goes to disk at once: under a lock on the folder the file is read
// again, the one key's line is changed, and the whole, synced to disk, is
// renamed over the file (a copy killed mid-write leaves the old file or the
// new one, never a part, and at most a file "<name>.<process id>" beside
// it). Every other line stays as it stands, so two copies never undo each
// other's keys, and a hand-edited value stays until that key is written. A
// write that cannot reach the disk (a read-only folder, a full disk) keeps
// the value in memory for the run, and it goes to the file with the next
// write that succeeds.
#pragma once

#include <sys/stat.h>

#include <QSocketNotifier>
#include <QString>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace nautrix {

class SettingsStore {
 public:
  // The store of `application` where QSettings keeps the user's INI files
  // ($XDG_CONFIG_HOME, by default ~/.config; QSettings::setPath moves it).
  explicit SettingsStore(const std::string& application);
  ~SettingsStore();
  SettingsStore(const SettingsStore&) = delete;
  SettingsStore& operator=(const SettingsStore&) = delete;

  // The text of `key` in `group`, or nullptr when it is missing; valid until
  // the next call.
  const std::string* Read(const std::string& group, const std::string& key);
  // Stores the text of `key` in `group`, or removes the key without a value.
  void Write(const std::string& group, const std::string& key,
             const std::optional<std::string>& text);

  const QString& path() const { return path_; }

 private:
  // One line of the file, as it stands; `key` is empty unless it is a key line.
  struct Line {
    std::string text, group, key;
  };
  using Change = std::optional<std::string>;  // nullopt: the key is removed

  void Watch();                         // starts the folder's watch if there is none
  void TakeEvents();                    // notes what the watch saw
  void Unwatch();
  void Parse(const QByteArray& bytes);  // into lines_ and values_
  void Reload();                        // reads the file and notes its identity
  bool Commit();                        // writes pending_ into the file
  void SetLine(const std::string& group, const std::string& key, const Change& change);
  void ApplyPending();                  // the changes not yet on disk, to values_

  QString path_;
  std::string native_path_, folder_, file_name_;
  int watch_ = -1;  // the inotify descriptor
  std::unique_ptr<QSocketNotifier> watch_notifier_;
  bool maybe_changed_ = true;  // the watch saw the file touched since the last look
  bool known_ = false;      // `seen_` describes the file that was read
  struct stat seen_ = {};   // the file as read: identity, size, change time
  std::vector<Line> lines_;
  // The values by group and key, and the changes written but not yet on disk.
  std::map<std::string, std::map<std::string, std::string, std::less<>>, std::less<>> values_;
  std::map<std::pair<std::string, std::string>, Change> pending_;
};

}  // namespace nautrix
