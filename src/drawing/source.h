#pragma once

#include <cstdint>
#include <filesystem>
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

 private:
  std::shared_ptr<const void> owner_;
  std::string_view bytes_;
  FileStamp stamp_;
};

}  // namespace velmar::drawing
