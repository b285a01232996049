#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace velmar::drawing {

/// What tells one state of a file from another without reading it.
struct FileStamp {
  std::uint64_t device = 0, inode = 0, size = 0;
  std::int64_t modified_ns = 0;
  friend bool operator==(const FileStamp&, const FileStamp&) = default;
};
/// Nothing where there is no such file.
std::optional<FileStamp> stamp_of(const std::filesystem::path& path);

/// The bytes a drawing was read from: a file mapped for reading, or a string. They never move.
class Source {
 public:
  /// Fails with Error where the file cannot be opened, is a directory or empty.
  static Source map(const std::filesystem::path& path);
  static Source of(std::string bytes);

  std::string_view bytes() const { return bytes_; }
  const FileStamp& stamp() const { return stamp_; }
  /// False where another program wrote into the mapped file: then these are not the bytes that were
  /// read. A file that was replaced by another one is still as it was.
  bool is_as_read() const { return !stamp_now_ || stamp_now_() == stamp_; }

 private:
  std::shared_ptr<const void> owner_;
  std::string_view bytes_;
  FileStamp stamp_;
  std::function<FileStamp()> stamp_now_;  // of a mapped file; none where the bytes are a copy
};

}  // namespace velmar::drawing
