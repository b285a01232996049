#include "drawing/drawing.h"
#include "drawing/dxf/record_edit.h"
#include "drawing/erasing.h"
#include "drawing/file_writer.h"
#include "drawing/history.h"
#include "drawing/journal.h"
#include "drawing/store.h"

namespace velmar::drawing {
namespace {

/// The pieces of a drawing as it is saved: untouched spans of the source, and patches between them.
class Pieces {
 public:
  explicit Pieces(const Store& store) : store_(store), header_(header_bytes(store)) {
    const auto source_end = static_cast<std::uint32_t>(store.source_count);
    auto touched = store.touched.begin();
    auto added = store.added_before.begin();
    bool header_pending = !header_.empty();
    const auto header = static_cast<std::uint32_t>(store.landmarks.header);
    while (true) {
      std::uint32_t next = source_end + 1;
      if (touched != store.touched.end()) next = std::min(next, *touched);
      if (added != store.added_before.end()) next = std::min(next, added->first);
      if (header_pending) next = std::min(next, header);
      if (next > source_end) break;
      if (added != store.added_before.end() && added->first == next)
        add_records(next, (added++)->second);
      const bool is_touched = touched != store.touched.end() && *touched == next;
      if (is_touched) ++touched;
      if (header_pending && header == next) {
        header_pending = false;
        replace(next, header_);
      } else if (is_touched) {
        const Record& record = store.records[next];
        const bool gone = record.is(Record::erased) || record.is(Record::moved);
        replace(next, gone ? std::string_view() : store.bytes(static_cast<RecordId>(next)));
      }
    }
    take_source(store.source.bytes().size());
  }
  Pieces(const Pieces&) = delete;
  Pieces& operator=(const Pieces&) = delete;

  const std::vector<std::string_view>& list() const { return pieces_; }

 private:
  /// The header with its next handle; empty where it stays as it is.
  static std::string header_bytes(const Store& store) {
    if (!store.gave_handles || store.landmarks.header == RecordId::none) return {};
    return dxf::with_variable(store.bytes(store.landmarks.header), "$HANDSEED",
                              handle_text(store.handle_seed), store.format);
  }

  std::size_t begin_of(std::uint32_t record) const {
    return record < store_.source_count ? store_.records[record].begin : store_.records_end;
  }
  void take_source(std::size_t to) {
    if (to > copied_) pieces_.push_back(store_.source.bytes().substr(copied_, to - copied_));
    copied_ = std::max(copied_, to);
  }
  void add_records(std::uint32_t before, const std::vector<RecordId>& records) {
    take_source(begin_of(before));
    for (const RecordId id : records) {
      if (!store_.at(id).is(Record::erased)) pieces_.push_back(store_.bytes(id));
    }
  }
  void replace(std::uint32_t record, std::string_view bytes) {
    take_source(begin_of(record));
    if (!bytes.empty()) pieces_.push_back(bytes);
    copied_ = begin_of(record) + store_.source_bytes(record).size();
  }

  const Store& store_;
  std::string header_;
  std::vector<std::string_view> pieces_;
  std::size_t copied_ = 0;
};

std::vector<Handle> handles_of(const Store& store, const std::set<std::uint32_t>& records) {
  std::vector<Handle> handles;
  handles.reserve(records.size());
  for (const std::uint32_t record : records) {
    if (!store.draws_dimension(record)) handles.push_back(store.records[record].handle);
  }
  return handles;
}

/// What the save is about to do. The old content is the source where the target is the file that
/// this drawing was read from, also after saves since then.
SaveEntry save_entry(const Store& store, const std::filesystem::path& path, bool same_file,
                     const std::vector<std::string_view>& pieces) {
  std::error_code error;  // of what vanishes meanwhile
  SaveEntry entry{std::filesystem::absolute(path, error), {}, mark_of(pieces), {}};
  if (error) {
    throw Error(path.string() + ": cannot be written: " + error.message() + "; nothing was saved");
  }
  if (same_file) {
    const std::string_view before = store.source.bytes();
    entry.before = mark_of({before});
    entry.old = old_runs(before, pieces);
  } else if (const auto size = std::filesystem::file_size(path, error); !error && size > 0) {
    const Source replaced = Source::map(path);
    entry.before = mark_of({replaced.bytes()});
    entry.old = old_runs(replaced.bytes(), {});
  }
  return entry;
}

}  // namespace

void Drawing::keep_journal(std::shared_ptr<Journal> journal) {
  store_->journal = std::move(journal);
}

Changes Drawing::changes() const {
  settle_erased(*store_);
  return {handles_of(*store_, store_->added_since_save),
          handles_of(*store_, store_->modified_since_save),
          handles_of(*store_, store_->erased_since_save)};
}

bool Drawing::is_changed() const { return store_->content != store_->saved_content; }

void Drawing::save(const std::filesystem::path& path) {
  settle_erased(*store_);
  const Pieces pieces(*store_);
  save_pieces(path, pieces.list());
}

void Drawing::save(const std::filesystem::path& path, const Conversion& conversion) {
  save_pieces(path, {conversion.bytes});
  store_->saved_converted = true;
}

void Drawing::save_pieces(const std::filesystem::path& path,
                          const std::vector<std::string_view>& pieces) {
  FileWriter file(path);  // from here on no other program of ours replaces the target
  std::error_code error;
  const bool same_file =
      !store_->path.empty() && std::filesystem::equivalent(path, store_->path, error);
  if (same_file && stamp_of(path) != store_->stamp) {
    throw Error(path.string() +
                ": has changed since it was opened; nothing was saved. Open it again, or save "
                "under another name");
  }
  file.write(pieces);
  if (!store_->source.is_as_read()) {
    throw Error(store_->name +
                ": another program wrote into the file since it was opened; nothing was saved. "
                "Open it again");
  }
  if (store_->journal) {
    const bool is_source = same_file && !store_->saved_converted;
    store_->journal->add(save_entry(*store_, path, is_source, pieces));
  }
  file.finish();
  store_->path = path;
  store_->name = path.string();
  store_->stamp = stamp_of(path);
  store_->saved_content = store_->content;
  if (store_->history) store_->history->saved(*store_);
  store_->added_since_save.clear();
  store_->modified_since_save.clear();
  store_->erased_since_save.clear();
}

std::string Drawing::bytes() const {
  settle_erased(*store_);
  const Pieces pieces(*store_);
  std::string bytes;
  for (const std::string_view piece : pieces.list()) bytes += piece;
  return bytes;
}

}  // namespace velmar::drawing
