#pragma once

#include <cstdint>
#include <filesystem>

namespace velmar::drawing {

/// Keeps other programs of ours from replacing a file while this lives: whatever is found out about
/// the file stays true until it is replaced here. Nothing is locked where there is no such file, or
/// where its file system has no locks. Fails with Error where another program has the lock for half
/// a minute.
class FileLock {
 public:
  explicit FileLock(const std::filesystem::path& path);
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;
  ~FileLock();

 private:
#ifdef _WIN32
  std::intptr_t mutex_ = 0;  // a handle
#else
  int file_ = -1;  // a descriptor
#endif
};

}  // namespace velmar::drawing
