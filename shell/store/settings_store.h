// The settings store on the desktop: one INI file, "<application>.ini" in the
// user's configuration folder, shared by every running copy of the program.
//
// Reads come from memory and cost nothing more: a watch on the file and its
// folder tells when something happened to the file, and only then does the
// next read look at it (stat), and read it again only when it really changed
// on disk since (its identity, size or times differ: every write replaces
// it). So a read shows the latest write of any copy, and of a hand edit.
// Where no watch can be set (no event loop, the folder not made yet), every
// read looks at the file.
//
// A write goes to disk at once: under the folder's lock the file is read
// again, the one key's line is changed, and the whole replaces the file
// (durable_file.h). Every other line stays as it stands, so two copies never
// undo each other's keys, and a hand-edited value stays until that key is
// written. A store that is a symbolic link stays one: its target is
// replaced. A write that cannot reach the disk (a read-only folder, a full
// disk, a lock another copy keeps) keeps the value in memory for the run,
// and it goes to the file with the next write that succeeds.
#pragma once

#include <sys/stat.h>

#include <QString>
#include <map>
#include <optional>
#include <string>
#include <utility>

#include "shell/store/ini_text.h"
#include "shell/store/store_watch.h"

namespace nautrix {

class SettingsStore {
 public:
  // The store of `application` where QSettings keeps the user's INI files
  // ($XDG_CONFIG_HOME, by default ~/.config; QSettings::setPath moves it).
  explicit SettingsStore(const std::string& application);
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
  void Reload();        // reads the file and notes its identity
  bool Commit();        // writes pending_ into the file
  void ApplyPending();  // the changes not yet on disk, over the text read

  QString path_;
  std::string native_path_, folder_;
  bool maybe_changed_ = true;  // the watch saw the file touched since the last look
  bool known_ = false;         // `seen_` describes the file that was read
  struct stat seen_ = {};      // the file as read: identity, size, change time
  IniText text_;
  // The changes written but not yet on disk; nullopt: the key is removed.
  std::map<std::pair<std::string, std::string>, std::optional<std::string>> pending_;
  StoreWatch watch_;
};

}  // namespace nautrix
