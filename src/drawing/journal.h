#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmar::drawing {

/// Tells one content of a file from another.
struct ContentMark {
  std::uint64_t size = 0;
  std::uint64_t hash = 0;  // XXH3, 64 bits
  friend bool operator==(const ContentMark&, const ContentMark&) = default;
};
ContentMark mark_of(const std::vector<std::string_view>& pieces);

/// One run of the bytes that a save replaced: a span of the new file, or bytes that it has no more.
struct OldRun {
  std::uint64_t offset = 0, length = 0;  // in the new file
  std::string bytes;                     // where length is 0
};

/// What one save did to one file.
struct SaveEntry {
  std::filesystem::path file;         // absolute
  std::optional<ContentMark> before;  // nothing where there was no file
  ContentMark after;
  std::vector<OldRun> old;  // the old content, in order
};

/// The runs of `old_bytes` in terms of the new content: a piece that lies within `old_bytes` is
/// unchanged, and such pieces come in ascending order.
std::vector<OldRun> old_runs(std::string_view old_bytes,
                             const std::vector<std::string_view>& pieces);

/// A file of saves, so that each can be taken back (docs/formats/journal.md). Functions fail with
/// Error.
class Journal {
 public:
  /// Appends to the file from the first entry on.
  explicit Journal(std::filesystem::path file) : file_(std::move(file)) {}

  /// On the disk when it returns: call it before the save takes effect.
  void add(const SaveEntry& entry);

  /// All entries of a journal, oldest first.
  static std::vector<SaveEntry> read(const std::filesystem::path& file);

 private:
  std::filesystem::path file_;
};

/// What became of a file that a journal names.
enum class UndoOutcome { restored, removed, was_as_before };

/// Takes the save back: the file gets the bytes it had before, or is deleted where it was new.
/// Refused, with nothing changed, where the file is neither what the save left nor what it found.
UndoOutcome undo(const SaveEntry& entry);

}  // namespace velmar::drawing
