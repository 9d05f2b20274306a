#include "shell/store/settings_store.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>

#include "shell/file_stamp.h"
#include "shell/store/durable_file.h"

namespace nautrix {
namespace {

// A writer waits this long for another copy's write to end; past it, the
// value stays in memory until a later write gets through.
constexpr int kLockWaitMs = 1000;

}  // namespace

SettingsStore::SettingsStore(const std::string& application)
    : path_(QSettings(QSettings::IniFormat, QSettings::UserScope,
                      QString::fromStdString(application))
                .fileName()),
      native_path_(QFile::encodeName(path_).toStdString()),
      folder_(QFile::encodeName(QFileInfo(path_).absolutePath()).toStdString()),
      watch_(path_, [this] { maybe_changed_ = true; }) {}

const std::string* SettingsStore::Read(const std::string& group, const std::string& key) {
  if (maybe_changed_ || !watch_.watching()) {
    maybe_changed_ = false;
    struct stat now = {};
    const bool present = ::stat(native_path_.c_str(), &now) == 0;
    if (!known_ || !SameFileState(now, seen_) || present != (seen_.st_nlink > 0)) Reload();
  }
  const auto in_group = text_.values().find(group);
  if (in_group == text_.values().end()) return nullptr;
  const auto value = in_group->second.find(key);
  return value == in_group->second.end() ? nullptr : &value->second;
}

void SettingsStore::Write(const std::string& group, const std::string& key,
                          const std::optional<std::string>& text) {
  pending_[{group, key}] = text;
  if (!Commit()) ApplyPending();
}

void SettingsStore::Reload() {
  QFile file(path_);
  seen_ = {};
  QByteArray bytes;
  if (file.open(QIODevice::ReadOnly) && ::fstat(file.handle(), &seen_) == 0) {
    bytes = file.readAll();
  } else if (::stat(native_path_.c_str(), &seen_) != 0) {
    seen_ = {};  // no file: st_nlink 0
  }
  known_ = true;
  text_ = IniText(bytes);
  ApplyPending();
}

void SettingsStore::ApplyPending() {
  for (const auto& [slot, change] : pending_) text_.Set(slot.first, slot.second, change);
}

bool SettingsStore::Commit() {
  if (!QDir().mkpath(QFileInfo(path_).absolutePath())) return false;
  const FolderLock lock(folder_, kLockWaitMs);
  if (!lock.held()) return false;
  if (lock.exclusive()) RemoveKilledWrites(native_path_);
  Reload();  // what the file holds now, other copies' writes included
  if (!ReplaceFile(native_path_, text_.Bytes(), seen_.st_nlink > 0 ? &seen_ : nullptr))
    return false;
  if (::stat(native_path_.c_str(), &seen_) != 0) seen_ = {};
  pending_.clear();
  watch_.Arm();  // the folder may be new
  return true;
}

}  // namespace nautrix
