// What tells one state of a file from another, for the readers that keep
// what they read of a file (the settings store, the voice's decoded waves):
// a file replaced, rewritten, or copied in with its old times kept changes
// at least its identity, its size or its change time.
#pragma once

#include <sys/stat.h>

namespace nautrix {

inline bool SameFileState(const struct stat& a, const struct stat& b) {
  return a.st_dev == b.st_dev && a.st_ino == b.st_ino && a.st_size == b.st_size &&
         a.st_ctim.tv_sec == b.st_ctim.tv_sec && a.st_ctim.tv_nsec == b.st_ctim.tv_nsec &&
         a.st_mtim.tv_sec == b.st_mtim.tv_sec && a.st_mtim.tv_nsec == b.st_mtim.tv_nsec;
}

}  // namespace nautrix
