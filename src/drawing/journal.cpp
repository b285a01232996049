#include "drawing/journal.h"

#define XXH_INLINE_ALL
#include <xxhash.h>

#include <algorithm>
#include <fstream>
#include <functional>
#include <memory>
#include <sstream>

#include "drawing/disk_flush.h"
#include "drawing/error.h"
#include "drawing/file_writer.h"
#include "drawing/source.h"
#include "drawing/utf8_path.h"

namespace velmar::drawing {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view first_line = "velmar journal 1";

std::string utf8(const fs::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

std::string text_of(const ContentMark& mark) {
  std::ostringstream text;
  text << mark.size << ' ' << std::hex << mark.hash;
  return text.str();
}

/// Reads what Journal::add wrote.
class JournalReader {
 public:
  explicit JournalReader(const fs::path& path) : name_(utf8(path)), file_(path, std::ios::binary) {
    if (!file_) throw Error(name_ + ": cannot be read");
  }

  bool at_end() { return file_.peek() == std::ifstream::traits_type::eof(); }

  SaveEntry entry() {
    if (line() != first_line) refuse("\"" + std::string(first_line) + "\"");
    SaveEntry entry;
    entry.file = utf8_path(field("file"));
    const std::string before = field("before");
    if (before != "nothing") entry.before = mark(before);
    entry.after = mark(field("after"));
    for (std::string run = line(); run != "end"; run = line()) entry.old.push_back(old_run(run));
    return entry;
  }

 private:
  std::string line() {
    std::string text;
    if (!std::getline(file_, text)) refuse("another line");
    ++line_;
    return text;
  }
  std::string field(std::string_view name) {
    const std::string text = line();
    if (!text.starts_with(name) || text.size() <= name.size())
      refuse("\"" + std::string(name) + "\"");
    return text.substr(name.size() + 1);
  }
  ContentMark mark(const std::string& text) {
    ContentMark mark;
    std::istringstream in(text);
    if (!(in >> mark.size >> std::hex >> mark.hash)) refuse("a size and a hash");
    return mark;
  }
  OldRun old_run(const std::string& text) {
    std::istringstream in(text);
    std::string word;
    OldRun run;
    in >> word;
    if (word == "keep" && in >> run.offset >> run.length) return run;
    std::size_t size = 0;
    if (word != "bytes" || !(in >> size)) refuse("\"keep\", \"bytes\" or \"end\"");
    constexpr std::size_t chunk = 1 << 20;  // a size that is a lie must not take memory
    while (run.bytes.size() < size) {
      const std::size_t old = run.bytes.size(), more = std::min(chunk, size - old);
      run.bytes.resize(old + more);
      if (!file_.read(run.bytes.data() + old, static_cast<std::streamsize>(more))) {
        refuse(std::to_string(size) + " bytes");
      }
    }
    if (file_.get() != '\n') refuse("a line end behind the bytes");
    return run;
  }
  [[noreturn]] void refuse(const std::string& expected) const {
    throw Error(name_ + ", line " + std::to_string(line_) + ": expected " + expected +
                "; this is no complete journal");
  }

  std::string name_;
  std::ifstream file_;
  std::size_t line_ = 0;
};

std::vector<std::string_view> old_pieces(const SaveEntry& entry, std::string_view now) {
  std::vector<std::string_view> pieces;
  for (const OldRun& run : entry.old) {
    if (run.length > 0 && run.offset <= now.size() && run.length <= now.size() - run.offset) {
      pieces.push_back(
          now.substr(static_cast<std::size_t>(run.offset), static_cast<std::size_t>(run.length)));
    } else if (run.length == 0) {
      pieces.emplace_back(run.bytes);
    }
  }
  return pieces;
}

}  // namespace

ContentMark mark_of(const std::vector<std::string_view>& pieces) {
  const std::unique_ptr<XXH3_state_t, decltype(&XXH3_freeState)> state(XXH3_createState(),
                                                                       &XXH3_freeState);
  XXH3_64bits_reset(state.get());
  ContentMark mark;
  for (const std::string_view piece : pieces) {
    XXH3_64bits_update(state.get(), piece.data(), piece.size());
    mark.size += piece.size();
  }
  mark.hash = XXH3_64bits_digest(state.get());
  return mark;
}

std::vector<OldRun> old_runs(std::string_view old_bytes,
                             const std::vector<std::string_view>& pieces) {
  const std::less_equal<> not_behind;
  std::vector<OldRun> runs;
  std::size_t taken = 0;     // of the old bytes
  std::uint64_t offset = 0;  // in the new content
  const auto store_until = [&](std::size_t end) {
    if (end > taken) runs.push_back({0, 0, std::string(old_bytes.substr(taken, end - taken))});
  };
  for (const std::string_view piece : pieces) {
    const bool unchanged =
        not_behind(old_bytes.data(), piece.data()) &&
        not_behind(piece.data() + piece.size(), old_bytes.data() + old_bytes.size());
    if (unchanged && !piece.empty()) {
      const auto begin = static_cast<std::size_t>(piece.data() - old_bytes.data());
      store_until(begin);
      runs.push_back({offset, piece.size(), {}});
      taken = begin + piece.size();
    }
    offset += piece.size();
  }
  store_until(old_bytes.size());
  return runs;
}

void Journal::add(const SaveEntry& entry) {
  std::error_code no_file;
  const auto complete = fs::file_size(file_, no_file);
  std::ofstream file(file_, std::ios::binary | std::ios::app);
  file << first_line << "\nfile " << utf8(entry.file) << "\nbefore "
       << (entry.before ? text_of(*entry.before) : "nothing") << "\nafter " << text_of(entry.after)
       << '\n';
  for (const OldRun& run : entry.old) {
    if (run.length > 0) {
      file << "keep " << run.offset << ' ' << run.length << '\n';
    } else {
      file << "bytes " << run.bytes.size() << '\n' << run.bytes << '\n';
    }
  }
  file << "end\n";
  file.close();
  if (file && flush_to_disk(file_)) return;
  std::error_code unchangeable;
  fs::resize_file(file_, no_file ? 0 : complete, unchangeable);
  throw Error(utf8(file_) + ": the journal cannot be written; nothing was saved");
}

std::vector<SaveEntry> Journal::read(const fs::path& file) {
  JournalReader reader(file);
  std::vector<SaveEntry> entries;
  while (!reader.at_end()) entries.push_back(reader.entry());
  return entries;
}

UndoOutcome undo(const SaveEntry& entry) {
  const std::string name = utf8(entry.file);
  std::error_code missing;
  if (!fs::exists(entry.file, missing)) {
    if (!entry.before) return UndoOutcome::was_as_before;
    throw Error(name + ": is not there any more; nothing was undone");
  }
  const Source now = Source::map(entry.file);
  const ContentMark mark = mark_of({now.bytes()});
  if (entry.before == mark) return UndoOutcome::was_as_before;
  const Error changed(name + ": has changed since the journal was written; nothing was undone");
  if (mark != entry.after) throw changed;
  if (!entry.before) {
    fs::remove(entry.file);
    return UndoOutcome::removed;
  }
  const std::vector<std::string_view> pieces = old_pieces(entry, now.bytes());
  if (mark_of(pieces) != *entry.before) {
    throw Error(name + ": the journal does not give back what it promises; nothing was undone");
  }
  FileWriter file(entry.file);  // from here on no other program of ours replaces it
  if (stamp_of(entry.file) != now.stamp()) throw changed;
  file.write(pieces);
  file.finish();
  return UndoOutcome::restored;
}

}  // namespace velmar::drawing
