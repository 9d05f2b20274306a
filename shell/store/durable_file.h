// The settings file's replacement on disk: a write reaches the disk whole or
// not at all, under a lock on the folder that the copies of the program
// share. A copy killed mid-write leaves the old file or the new one, never a
// part, and at most a file "<name>.<process id>" beside it, which the next
// writer clears away.
#pragma once

#include <sys/stat.h>

#include <QByteArray>
#include <string>

namespace nautrix {

// The calls that bring a new file to disk and put it in place; a test makes
// them fail as a full disk or a broken file system does.
struct DiskCalls {
  int (*fsync)(int fd);
  int (*rename)(const char* from, const char* to);
};
DiskCalls& Disk();

// The folder's lock, held while the file is read, changed and replaced: the
// kernel lets it go however its holder ends, so a copy killed mid-write holds
// nobody up. Another copy holds it for the few milliseconds of its write; a
// file system without such locks lets the write go unlocked. Not `held()`
// when the folder cannot be opened or another copy keeps the lock past
// `wait_ms`.
class FolderLock {
 public:
  FolderLock(const std::string& folder, int wait_ms);
  ~FolderLock();
  FolderLock(const FolderLock&) = delete;
  FolderLock& operator=(const FolderLock&) = delete;
  bool held() const { return held_; }
  // Held by this copy alone (not so on a file system without locks).
  bool exclusive() const { return exclusive_; }

 private:
  int fd_ = -1;
  bool held_ = false, exclusive_ = false;
};

// Puts `bytes` in place of the file at `path` (a link's target when `path`
// is a symbolic link, so that the link stays): a new file beside it, on disk
// before it is renamed over the old one, with the old one's mode. A failed
// write, sync or rename leaves the old file as it was.
bool ReplaceFile(const std::string& path, const QByteArray& bytes, const struct stat* old);

// Clears the new files of writers that were killed; called with the lock held.
void RemoveKilledWrites(const std::string& path);

}  // namespace nautrix
