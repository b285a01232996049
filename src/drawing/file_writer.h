#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "drawing/file_lock.h"

namespace velmar::drawing {

/// Writes a file beside its target and puts it in the target's place when complete: whatever fails,
/// the old file is whole. A second writer of the same target waits in its constructor until the
/// first one is gone. Fails with Error.
class FileWriter {
 public:
  explicit FileWriter(const std::filesystem::path& target);
  FileWriter(const FileWriter&) = delete;
  FileWriter& operator=(const FileWriter&) = delete;
  ~FileWriter();  // an unfinished file is removed

  void write(const std::vector<std::string_view>& pieces);
  /// Flushes to the disk if an older file is about to go, then renames.
  void finish();

 private:
  [[noreturn]] void refuse(const char* doing) const;

  /// Where links lead: the file that a link names is replaced, the link stays.
  static std::filesystem::path followed(const std::filesystem::path& path) {
    std::error_code error;
    const auto real = std::filesystem::canonical(path, error);
    return error ? path : real;
  }

  std::filesystem::path target_;
  FileLock lock_;                    // on the target
  std::filesystem::path temporary_;  // empty when finished
#ifdef _WIN32
  std::intptr_t file_ = -1;  // a handle
#else
  int file_ = -1;  // a descriptor
#endif
  bool replaces_ = false;
};

}  // namespace velmar::drawing
