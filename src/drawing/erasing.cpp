#include "drawing/erasing.h"

#include "drawing/dimension/drawn_kinds.h"
#include "drawing/dxf/record_tags.h"
#include "drawing/followers.h"
#include "drawing/references.h"

namespace velmar::drawing {
namespace {

bool is_live_object(const Store& store, RecordId id) {
  return id != RecordId::none && !store.at(id).is(Record::erased) &&
         store.at(id).space == SpaceId::none;
}

/// Objects name their owner; what an erased record says it owns without that stays.
void erase_owned(Store& store, RecordId owner) {
  const Handle handle = store.at(owner).handle;
  each_reference(store.bytes(owner), store.format, [&](const dxf::Tag& tag, Handle named) {
    const Reference kind = reference_of(tag.code);
    if (kind != Reference::soft_owner && kind != Reference::hard_owner) return;
    const RecordId owned = store.find(named);
    if (!is_live_object(store, owned)) return;
    if (owner_named(store.bytes(owned), store.format) == handle) mark_erased(store, owned);
  });
}

/// Takes the tags that name what is gone out of a record's lists.
class Mending {
 public:
  Mending(const Store& store, RecordId id, const Handles& gone)
      : record_(store.bytes(id), store.format),
        gone_(gone),
        kind_(store.kind_name(store.at(id).kind)) {}

  /// The same bytes where nothing is to be done.
  std::string result() {
    const auto& tags = record_.tags();
    for (std::size_t i = 0; i < tags.size();) {
      const std::size_t count = entry_at(i);
      if (count == 0) {
        append(tags[i++]);
        continue;
      }
      const dxf::Tag& last = tags[i + count - 1];
      const bool is_gone = gone_.contains(parse_handle(record_.text(tags[key_of(i)])));
      if (!is_gone) result_ += record_.bytes().substr(tags[i].begin, last.next - tags[i].begin);
      i += count;
    }
    return std::move(result_);
  }

 private:
  std::size_t key_of(std::size_t i) const {
    const int code = record_.tags()[i].code;
    return code == 3 ? i + 1 : i;  // a dictionary's entry: its name, then the handle
  }

  /// Of how many tags the entry of a list is that begins here; 0 where none does.
  std::size_t entry_at(std::size_t i) const {
    const auto& tags = record_.tags();
    const int code = tags[i].code;
    const int following = i + 1 < tags.size() ? tags[i + 1].code : -1;
    if (tags[i].in_group && code != 102) {
      const bool is_reference = reference_of(code) != Reference::none;
      return is_reference && (group_ == "{ACAD_REACTORS" || group_ == "{BLKREFS") ? 1 : 0;
    }
    if (kind_ == "GROUP" || kind_ == "TABLE") return code == 340 ? 1 : 0;
    if (kind_ == "SORTENTSTABLE") return code == 331 && following == 5 ? 2 : 0;
    const bool is_dictionary = kind_ == "DICTIONARY" || kind_ == "ACDBDICTIONARYWDFLT";
    return is_dictionary && code == 3 && (following == 350 || following == 360) ? 2 : 0;
  }

  /// A group whose end follows its beginning is left out.
  void append(const dxf::Tag& tag) {
    const std::string_view text = record_.text(tag);
    if (tag.code == 102 && text.starts_with('{')) {
      group_ = text;
      group_begin_ = result_.size();
    }
    result_ += record_.bytes().substr(tag.begin, tag.next - tag.begin);
    if (tag.code == 102 && text == "}" && group_was_emptied(tag)) result_.resize(group_begin_);
    if (tag.code == 102 && text == "}") group_ = {};
  }

  bool group_was_emptied(const dxf::Tag& end) const {
    const bool is_list = group_ == "{ACAD_REACTORS" || group_ == "{BLKREFS";
    const std::string_view held = std::string_view(result_).substr(group_begin_);
    dxf::TagCursor cursor(held, record_.format());
    dxf::Tag first, second;
    cursor.next(first);
    cursor.next(second);
    return is_list && second.code == 102 && second.next - second.begin == end.next - end.begin;
  }

  dxf::RecordTags record_;
  const Handles& gone_;
  std::string_view kind_;
  std::string_view group_;
  std::size_t group_begin_ = 0;
  std::string result_;
};

/// The records whose lists may name what was erased.
class Lists {
 public:
  explicit Lists(const Store& store) : store_(store) {}

  void add_named_by(RecordId erased) {
    each_reference(store_.bytes(erased), store_.format, [&](const dxf::Tag&, Handle named) {
      const RecordId id = store_.find(named);
      if (id != RecordId::none) ids_.insert(static_cast<std::uint32_t>(id));
    });
    const Record& record = store_.at(erased);
    any_insert_ = any_insert_ || record.kind == Kind::insert;
    any_object_ = any_object_ || (record.space == SpaceId::none && record.kind >= Kind::dictionary);
  }

  /// Lists of what need not know of it: groups, drawing orders, dictionaries, blocks that name
  /// their references, and whatever has reactors.
  void add_listing_kinds() {
    for (std::uint32_t i = 0; i < store_.records.size(); ++i) {
      const Kind kind = store_.records[i].kind;
      const bool lists = kind >= Kind::others && (store_.kind_name(kind) == "GROUP" ||
                                                  store_.kind_name(kind) == "SORTENTSTABLE");
      const bool listing = lists || (any_insert_ && kind == Kind::block_record) ||
                           (any_object_ && kind == Kind::dictionary);
      if (listing || has_reactors(static_cast<RecordId>(i))) ids_.insert(i);
    }
  }

  const std::set<std::uint32_t>& ids() const { return ids_; }

 private:
  bool has_reactors(RecordId id) const {
    return !store_.at(id).is(Record::erased) &&
           store_.bytes(id).find("{ACAD_REACTORS") != std::string_view::npos;
  }

  const Store& store_;
  std::set<std::uint32_t> ids_;
  bool any_insert_ = false, any_object_ = false;
};

}  // namespace

void mend(Store& store, RecordId id, std::string bytes) {
  if (bytes == store.bytes(id)) return;
  const auto number = static_cast<std::uint32_t>(id);
  const bool is_told = store.modified_since_save.contains(number);
  const bool was_edited = store.at(id).is(Record::edited);
  store.patch(id, std::move(bytes));
  if (!is_told) store.modified_since_save.erase(number);
  if (!was_edited) store.at(id).flags &= static_cast<std::uint16_t>(~Record::edited);
}

void mark_erased(Store& store, RecordId id) {
  if (store.at(id).is(Record::erased)) return;
  store.remember(id);
  store.any_erased = true;
  store.at(id).flags |= Record::erased;
  store.unsettled.push_back(id);
  if (!store.at(id).is(Record::added)) store.touched.insert(static_cast<std::uint32_t>(id));
}

void erase_entity(Store& store, RecordId id) {
  const auto number = static_cast<std::uint32_t>(id);
  if (store.at(id).is(Record::erased)) return;
  store.edited();
  const Kind kind = store.at(id).kind;
  if (kind == Kind::insert || kind == Kind::polyline) {  // others have no parts to look for
    for (RecordId part = store.next(id);
         index(part) < store.records.size() && store.at(part).is(Record::part);
         part = store.next(part)) {
      mark_erased(store, part);
      store.modified_since_save.erase(static_cast<std::uint32_t>(part));
    }
  }
  mark_erased(store, id);
  store.modified_since_save.erase(number);
  if (store.added_since_save.erase(number) == 0) store.erased_since_save.insert(number);
}

void settle_erased(Store& store) {
  if (store.unsettled.empty()) return;
  Handles gone;
  Lists lists(store);
  while (!store.unsettled.empty()) {  // what is erased may take other things with it
    std::unordered_set<std::uint32_t> dimensions;
    for (std::size_t i = 0; i < store.unsettled.size(); ++i) {
      const RecordId id = store.unsettled[i];
      gone.insert(store.at(id).handle);
      lists.add_named_by(id);
      erase_owned(store, id);
      if (shows_drawn_block(store.at(id).kind)) dimensions.insert(static_cast<std::uint32_t>(id));
    }
    gone.erase(0);
    store.unsettled.clear();
    erase_drawn_blocks(store, dimensions);
    erase_associations(store, gone);
  }
  detach_hatches(store, gone);
  release_leaders(store, gone);
  lists.add_listing_kinds();
  for (const std::uint32_t number : lists.ids()) {
    const auto id = static_cast<RecordId>(number);
    if (store.at(id).is(Record::erased)) continue;
    mend(store, id, Mending(store, id, gone).result());
  }
}

}  // namespace velmar::drawing
