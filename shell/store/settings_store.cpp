#include "shell/store/settings_store.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include <QAbstractEventDispatcher>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>
#include <QSettings>
#include <QThread>

namespace nautrix {
namespace {

// A writer waits this long for another copy's write to end; past it, the
// value stays in memory until a later write gets through.
constexpr int kLockWaitMs = 1000;

bool SameFile(const struct stat& a, const struct stat& b) {
  return a.st_dev == b.st_dev && a.st_ino == b.st_ino && a.st_size == b.st_size &&
         a.st_ctim.tv_sec == b.st_ctim.tv_sec && a.st_ctim.tv_nsec == b.st_ctim.tv_nsec &&
         a.st_mtim.tv_sec == b.st_mtim.tv_sec && a.st_mtim.tv_nsec == b.st_mtim.tv_nsec;
}

std::string Trimmed(const std::string& text) {
  const size_t first = text.find_first_not_of(" \t\r");
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

// Keys and group names keep letters, digits, '-', '_' and '.'; every other
// character is "%XX" (up to U+00FF) or "%UXXXX", as QSettings writes them.
std::string EscapedKey(const std::string& key) {
  QString out;
  for (const QChar c : QString::fromStdString(key)) {
    const char16_t u = c.unicode();
    if ((u >= 'a' && u <= 'z') || (u >= 'A' && u <= 'Z') || (u >= '0' && u <= '9') || u == '-' ||
        u == '_' || u == '.') {
      out += c;
    } else if (u <= 0xff) {
      out += QStringLiteral("%%1").arg(int{u}, 2, 16, QLatin1Char('0')).toUpper();
    } else {
      out += QStringLiteral("%U%1").arg(int{u}, 4, 16, QLatin1Char('0')).toUpper();
    }
  }
  return out.toStdString();
}

std::string UnescapedKey(const std::string& text) {
  const QString in = QString::fromStdString(Trimmed(text));
  QString out;
  for (qsizetype i = 0; i < in.size(); ++i) {
    const bool wide = in[i] == '%' && i + 1 < in.size() && in[i + 1] == 'U';
    const qsizetype digits = wide ? 4 : 2, start = i + (wide ? 2 : 1);
    bool ok = false;
    const uint code = in[i] == '%' ? in.mid(start, digits).toUInt(&ok, 16) : 0;
    if (ok && in.mid(start, digits).size() == digits) {
      out += QChar(static_cast<char16_t>(code));
      i = start + digits - 1;
    } else {
      out += in[i];
    }
  }
  return out.toStdString();
}

// A value is written as it stands unless it would not read back so: then in
// double quotes, with \" \\ \n \r \t inside.
std::string EscapedValue(const std::string& value) {
  const bool plain = value.find_first_of("\"\\;,\n\r\t") == std::string::npos &&
                     (value.empty() || (value.front() != ' ' && value.back() != ' '));
  if (plain) return value;
  std::string out = "\"";
  for (const char c : value) {
    switch (c) {
      case '"': out += "\\\""; break;
      case '\\': out += "\\\\"; break;
      case '\n': out += "\\n"; break;
      case '\r': out += "\\r"; break;
      case '\t': out += "\\t"; break;
      default: out += c;
    }
  }
  return out + '"';
}

// The text of a value: blanks around it dropped, a ';' outside quotes starts
// a comment, double quotes keep what they enclose (with the escapes above).
// Anything else, commas and QSettings' "@Type(...)" forms included, is read
// as plain text.
std::string UnescapedValue(const std::string& raw) {
  std::string out;
  bool quoted = false;
  size_t kept = 0;  // out's length up to its last quoted or non-blank character
  for (size_t i = raw.find_first_not_of(" \t"); i < raw.size(); ++i) {
    const char c = raw[i];
    if (c == '"') {
      quoted = !quoted;
      kept = out.size();
      continue;
    }
    if (!quoted && c == ';') break;
    if (c == '\\' && i + 1 < raw.size()) {
      const char e = raw[++i];
      out += e == 'n' ? '\n' : e == 'r' ? '\r' : e == 't' ? '\t' : e;
      kept = out.size();
      continue;
    }
    out += c;
    if (quoted || (c != ' ' && c != '\t' && c != '\r')) kept = out.size();
  }
  out.resize(kept);
  return out;
}

// Puts `bytes` in place of the file at `path` at once: a new file beside it,
// on disk before it is renamed over the old one, with the old one's mode. A
// failed write or sync (a full disk) leaves the old file as it was; QSaveFile
// would not, as it renames even when its last write fails.
bool ReplaceFile(const std::string& path, const QByteArray& bytes, const struct stat* old) {
  const std::string temp = path + '.' + std::to_string(::getpid());
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
  ok = ok && ::fsync(fd) == 0;
  ok = ::close(fd) == 0 && ok;
  ok = ok && ::rename(temp.c_str(), path.c_str()) == 0;
  if (!ok) ::unlink(temp.c_str());
  return ok;
}

// A writer's new file lives only while it holds the folder's lock: one seen
// by the holder of the lock was left by a writer that was killed.
void RemoveKilledWrites(const QString& path) {
  const QFileInfo store(path);
  const QString prefix = store.fileName() + '.';
  for (const QString& name : store.dir().entryList(QDir::Files | QDir::Hidden | QDir::System)) {
    bool pid = false;
    if (name.startsWith(prefix)) name.mid(prefix.size()).toUInt(&pid);
    if (pid) QFile::remove(store.dir().filePath(name));
  }
}

}  // namespace

SettingsStore::SettingsStore(const std::string& application)
    : path_(QSettings(QSettings::IniFormat, QSettings::UserScope,
                      QString::fromStdString(application))
                .fileName()),
      native_path_(QFile::encodeName(path_).toStdString()),
      folder_(QFile::encodeName(QFileInfo(path_).absolutePath()).toStdString()),
      file_name_(QFile::encodeName(QFileInfo(path_).fileName()).toStdString()) {
  Watch();
}

SettingsStore::~SettingsStore() { Unwatch(); }

void SettingsStore::Watch() {
  if (watch_ >= 0 || !QAbstractEventDispatcher::instance()) return;
  watch_ = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
  if (watch_ < 0) return;
  constexpr uint32_t kEvents = IN_CREATE | IN_MOVED_TO | IN_MOVED_FROM | IN_DELETE | IN_MODIFY |
                               IN_ATTRIB | IN_CLOSE_WRITE | IN_DELETE_SELF | IN_MOVE_SELF |
                               IN_ONLYDIR;
  if (inotify_add_watch(watch_, folder_.c_str(), kEvents) < 0) return Unwatch();
  watch_notifier_ = std::make_unique<QSocketNotifier>(watch_, QSocketNotifier::Read);
  QObject::connect(watch_notifier_.get(), &QSocketNotifier::activated, [this] { TakeEvents(); });
}

// The notifier may be the one whose signal is being handled: it goes later.
void SettingsStore::Unwatch() {
  if (watch_notifier_) {
    watch_notifier_->setEnabled(false);
    watch_notifier_.release()->deleteLater();
  }
  if (watch_ >= 0) ::close(watch_);
  watch_ = -1;
}

void SettingsStore::TakeEvents() {
  alignas(inotify_event) char buffer[4096];
  ssize_t size;
  while (watch_ >= 0 && (size = ::read(watch_, buffer, sizeof buffer)) > 0) {
    for (const char* at = buffer; at < buffer + size;) {
      const auto* event = reinterpret_cast<const inotify_event*>(at);
      at += sizeof(inotify_event) + event->len;
      if (event->mask & (IN_DELETE_SELF | IN_MOVE_SELF | IN_IGNORED)) {
        Unwatch();  // the folder is gone: every read looks until a write makes it again
      } else if (event->mask & IN_Q_OVERFLOW || (event->len && file_name_ == event->name)) {
        maybe_changed_ = true;
      }
    }
  }
}

const std::string* SettingsStore::Read(const std::string& group, const std::string& key) {
  if (maybe_changed_ || watch_ < 0) {
    maybe_changed_ = false;
    struct stat now = {};
    const bool present = ::stat(native_path_.c_str(), &now) == 0;
    if (!known_ || !SameFile(now, seen_) || present != (seen_.st_nlink > 0)) Reload();
  }
  const auto in_group = values_.find(group);
  if (in_group == values_.end()) return nullptr;
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
  Parse(bytes);
  ApplyPending();
}

void SettingsStore::Parse(const QByteArray& bytes) {
  lines_.clear();
  values_.clear();
  std::string group;
  for (const QByteArray& raw : bytes.split('\n')) {
    Line line{raw.toStdString(), {}, {}};
    const std::string text = Trimmed(line.text);
    if (!text.empty() && text.front() == '[') {
      group = UnescapedKey(text.substr(1, text.find(']') - 1));
    } else if (const size_t equals = text.find('=');
               equals != std::string::npos && text.front() != ';' && text.front() != '#') {
      line.key = UnescapedKey(text.substr(0, equals));
      values_[group][line.key] = UnescapedValue(text.substr(equals + 1));
    }
    line.group = group;
    lines_.push_back(std::move(line));
  }
  if (!lines_.empty() && lines_.back().text.empty()) lines_.pop_back();  // the last newline
}

void SettingsStore::ApplyPending() {
  for (const auto& [slot, change] : pending_) {
    if (change) {
      values_[slot.first][slot.second] = *change;
    } else if (const auto in_group = values_.find(slot.first); in_group != values_.end()) {
      in_group->second.erase(slot.second);
    }
  }
}

// The line of `key` in `group` says `change`: changed in place, removed, or
// added after the last line of its group (and the group added at the end).
void SettingsStore::SetLine(const std::string& group, const std::string& key,
                            const Change& change) {
  // The key's lines; of several, the last one is the one read, and kept.
  std::vector<size_t> found;
  for (size_t i = 0; i < lines_.size(); ++i) {
    if (lines_[i].group == group && lines_[i].key == key) found.push_back(i);
  }
  const size_t keep = change && !found.empty() ? 1 : 0;
  for (size_t n = found.size() - keep; n-- > 0;) lines_.erase(lines_.begin() + found[n]);
  if (!change) return;
  const std::string text = EscapedKey(key) + '=' + EscapedValue(*change);
  if (keep) {
    lines_[found.back() - (found.size() - 1)].text = text;
    return;
  }
  // A new key goes after the last key or header line of its group.
  auto after = lines_.end();
  for (auto line = lines_.begin(); line != lines_.end(); ++line) {
    if (line->group == group && !Trimmed(line->text).empty()) after = std::next(line);
  }
  if (after == lines_.end() && (lines_.empty() || lines_.back().group != group)) {
    if (!lines_.empty()) lines_.push_back({"", lines_.back().group, {}});
    lines_.push_back({'[' + EscapedKey(group) + ']', group, {}});
    after = lines_.end();
  }
  lines_.insert(after, {text, group, key});
}

bool SettingsStore::Commit() {
  if (!QDir().mkpath(QFileInfo(path_).absolutePath())) return false;
  // The folder's lock, held while the file is read, changed and replaced: the
  // kernel lets it go however its holder ends, so a copy killed mid-write
  // holds nobody up. Another copy holds it for the few milliseconds of its
  // write; a file system without such locks lets the write go unlocked.
  const int folder = ::open(folder_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (folder < 0) return false;
  const auto unlock = qScopeGuard([folder] { ::close(folder); });
  const QDeadlineTimer deadline(kLockWaitMs);
  int locked;
  while ((locked = ::flock(folder, LOCK_EX | LOCK_NB)) != 0 && errno == EWOULDBLOCK) {
    if (deadline.hasExpired()) return false;
    QThread::msleep(2);
  }
  if (locked == 0) RemoveKilledWrites(path_);
  Reload();  // what the file holds now, other copies' writes included
  for (const auto& [slot, change] : pending_) SetLine(slot.first, slot.second, change);
  QByteArray bytes;
  for (const Line& line : lines_) bytes += QByteArray::fromStdString(line.text) + '\n';
  if (!ReplaceFile(native_path_, bytes, seen_.st_nlink > 0 ? &seen_ : nullptr)) return false;
  if (::stat(native_path_.c_str(), &seen_) != 0) seen_ = {};
  pending_.clear();
  Parse(bytes);
  Watch();  // the folder may be new
  return true;
}

}  // namespace nautrix
