#include "drawing/uses.h"

#include "drawing/named_by.h"
#include "drawing/references.h"

namespace velmar::drawing {
namespace {

bool is_text(int code) { return dxf::value_kind(code) == dxf::ValueKind::text; }

class Marking {
 public:
  Marking(const Store& store, Candidates& candidates)
      : store_(store), candidates_(candidates), belongs_to_(store.records.size(), unknown) {}

  void mark_named(std::string_view name) {
    const std::string folded = folded_name(name);
    for (std::size_t kind = 0; kind < purgeable_kinds; ++kind) {
      mark_name(static_cast<Purgeable>(kind), folded);
    }
  }

  void scan(RecordId id) {
    const Record& record = store_.at(id);
    const std::string_view kind = store_.kind_name(record.kind);
    if (record.kind == Kind::cls) return;
    if (record.kind != kind_) codes_ = name_codes(kind);
    kind_ = record.kind;
    own_ = candidate_of(id);
    is_style_ = record.kind == Kind::style;
    is_list_ = record.kind == Kind::dictionary || record.kind == Kind::table ||
               kind == "ACDBDICTIONARYWDFLT";
    const std::string_view bytes = store_.bytes(id);
    dxf::TagCursor cursor(bytes, store_.format);
    dxf::Tag tag;
    bool in_xdata = false;
    while (cursor.next(tag)) {
      in_xdata = in_xdata || tag.code >= 1000;
      if (reference_of(tag.code) != Reference::none) {
        // A block's row tells which references there are to it.
        const bool is_back = record.kind == Kind::block_record && tag.code == 331;
        if (!is_list_ && !is_back) mark_handle(parse_handle(tag.text(bytes)));
      } else if (tag.code > 0 && is_text(tag.code)) {
        in_xdata ? scan_xdata(bytes, tag) : scan_text(bytes, tag);
      }
    }
    mark_members(id, kind);
  }

 private:
  static constexpr int unknown = -2;

  void mark(int candidate) {
    if (candidate >= 0 && candidate != own_) {
      candidates_.list()[static_cast<std::size_t>(candidate)].used = true;
    }
  }

  void mark_handle(Handle handle) {
    const RecordId named = store_.find(handle);
    if (named == RecordId::none) return;
    mark(candidates_.of_record(named));
    // A block is referred to by any of its records and entities.
    if (const int block = candidates_.of_space(store_.at(named).space); block >= 0) mark(block);
  }

  void mark_name(Purgeable kind, const std::string& folded) {
    mark(candidates_.named(kind, folded));
    // An arrowhead's block may be called without the line before its name.
    if (kind == Purgeable::block) mark(candidates_.named(kind, "_" + folded));
  }
  void mark_name(Purgeable kind, std::string_view bytes, const dxf::Tag& tag) {
    mark_name(kind, folded_name(dxf::text_value(bytes, tag, store_.format)));
  }

  void scan_xdata(std::string_view bytes, const dxf::Tag& tag) {
    if (tag.code == 1001) return mark_name(Purgeable::application, bytes, tag);
    // Text styles keep the name of their font there.
    const bool is_font = is_style_ && tag.code == 1000;
    if (!is_font) mark_named(dxf::text_value(bytes, tag, store_.format));
  }

  void scan_text(std::string_view bytes, const dxf::Tag& tag) {
    if (tag.code == 100) return;
    if (tag.code == 102) {
      const std::string_view text = tag.text(bytes);
      if (text.starts_with('{')) {
        mark(candidates_.named(Purgeable::application, folded_name(text.substr(1))));
      }
      return;
    }
    if (!codes_) return mark_named(dxf::text_value(bytes, tag, store_.format));
    for (const NameCode& row : *codes_) {
      if (row.code == tag.code) return mark_name(row.names, bytes, tag);
    }
    if (tag.code == 8) mark_name(Purgeable::layer, bytes, tag);
    if (tag.code == 6) mark_name(Purgeable::linetype, bytes, tag);
  }

  /// A group is in use as long as it has members.
  void mark_members(RecordId id, std::string_view kind) {
    if (kind != "GROUP") return;
    const int group = candidates_.of_record(id);
    if (group < 0) return;
    each_reference(store_.bytes(id), store_.format, [&](const dxf::Tag& tag, Handle member) {
      const RecordId found = store_.find(member);
      const bool is_member = reference_of(tag.code) == Reference::hard_pointer;
      if (is_member && found != RecordId::none && !store_.at(found).is(Record::erased)) {
        candidates_.list()[static_cast<std::size_t>(group)].used = true;
      }
    });
  }

  /// The candidate that a record is part of: itself, the block it is drawn in, what owns it; -1
  /// for none.
  int candidate_of(RecordId id) {
    std::vector<RecordId> chain;
    int found = -1;
    while (id != RecordId::none) {
      int& known = belongs_to_[index(id)];
      if (known != unknown) {
        found = known;
        break;
      }
      known = -1;  // also what ends a chain that goes in a circle
      chain.push_back(id);
      found = candidates_.of_record(id);
      if (found < 0) found = candidates_.of_space(store_.at(id).space);
      if (found >= 0 || store_.at(id).space != SpaceId::none) break;
      id = store_.find(owner_named(store_.bytes(id), store_.format));
    }
    for (const RecordId passed : chain) belongs_to_[index(passed)] = found;
    return found;
  }

  const Store& store_;
  Candidates& candidates_;
  std::vector<int> belongs_to_;
  std::optional<std::span<const NameCode>> codes_;  // of the record that is scanned
  Kind kind_ = Kind::cls;
  int own_ = -1;
  bool is_style_ = false, is_list_ = false;
};

}  // namespace

void mark_uses(const Store& store, Candidates& candidates,
               std::span<const std::string> names_in_use) {
  Marking marking(store, candidates);
  for (const std::string& name : names_in_use) marking.mark_named(name);
  for (std::uint32_t i = 0; i < store.records.size(); ++i) {
    if (!store.records[i].is(Record::erased)) marking.scan(static_cast<RecordId>(i));
  }
}

}  // namespace velmar::drawing
