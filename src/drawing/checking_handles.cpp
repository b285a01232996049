#include <unordered_map>
#include <unordered_set>

#include "drawing/checker.h"
#include "drawing/dxf/record_reader.h"
#include "drawing/references.h"

namespace velmar::drawing {
namespace {

class HandleCheck {
 public:
  HandleCheck(const Store& store, Faults& faults) : store_(store), faults_(faults) {}

  void check(RecordId id) {
    if (store_.at(id).kind == Kind::section || store_.at(id).kind == Kind::cls) return;
    check_references(id);
    check_owner(id);
  }

 private:
  bool exists(Handle handle) const {
    const RecordId found = store_.find(handle);
    return found != RecordId::none && !store_.at(found).is(Record::erased);
  }

  static std::string named(Handle handle) { return '#' + handle_text(handle); }

  void check_references(RecordId id) {
    const std::string_view bytes = store_.bytes(id);
    const std::string_view kind = store_.kind_name(store_.at(id).kind);
    dxf::TagCursor cursor(bytes, store_.format);
    dxf::Tag tag;
    std::string_view group;
    while (cursor.next(tag)) {
      if (tag.code == 102) group = tag.text(bytes);
      const Handle handle = parse_handle(tag.text(bytes));
      if (handle == 0 || exists(handle)) continue;
      const std::string_view role = role_of(tag.code, group, kind);
      if (!role.empty()) {
        faults_.add(role, id, tag.value,
                    std::string(role) + ' ' + named(handle) + " does not exist");
      }
    }
  }

  /// What is meant by a handle that must name something; empty for one that need not.
  static std::string_view role_of(int code, std::string_view group, std::string_view kind) {
    if (group == "{ACAD_REACTORS" && code == 330) return "reactor";
    if (group == "{ACAD_XDICTIONARY" && code == 360) return "extension dictionary";
    if (!group.empty() && group.front() == '{') return {};
    if (kind == "GROUP" && code == 340) return "group member";
    if (kind == "SORTENTSTABLE" && code == 331) return "entity of the drawing order";
    if (kind == "DICTIONARY" && (code == 350 || code == 360)) return "dictionary entry";
    switch (reference_of(code)) {
      case Reference::hard_pointer:
        return "pointer";
      case Reference::hard_owner:
      case Reference::soft_owner:
        return "owned object";
      default:
        return {};
    }
  }

  void check_owner(RecordId id) {
    const Record& record = store_.at(id);
    const Handle owner = owner_named(store_.bytes(id), store_.format);
    if (owner == 0) return;
    const RecordId found = store_.find(owner);
    if (!exists(owner)) {
      return faults_.add("owner", id, 0, "owner " + named(owner) + " does not exist");
    }
    if (record.space != SpaceId::none) return check_owner_of_entity(id, owner);
    const bool in_dictionary = store_.at(found).kind == Kind::dictionary;
    if (in_dictionary || record.kind == Kind::dictionary) {
      if (!owned_by(found).contains(record.handle)) {
        faults_.add("not owned", id, 0, "owner " + named(owner) + " does not list it");
      }
    }
  }

  void check_owner_of_entity(RecordId id, Handle owner) {
    const Record& record = store_.at(id);
    const Handle space = store_.spaces[index(record.space)].owner;
    const bool is_part = record.is(Record::part);
    const bool is_whole = is_part && store_.at(store_.whole(id)).handle == owner;
    if (owner == space || is_whole || space == 0) return;
    faults_.add("not owned", id, 0,
                "owner is " + named(owner) + ", but it is drawn in " +
                    store_.spaces[index(record.space)].name + ' ' + named(space));
  }

  /// What a record refers to; remembered, for dictionaries are asked for each of their entries.
  const std::unordered_set<Handle>& owned_by(RecordId owner) {
    const auto [known, is_new] = owned_.try_emplace(static_cast<std::uint32_t>(owner));
    std::unordered_set<Handle>& handles = known->second;
    if (is_new) {
      each_reference(store_.bytes(owner), store_.format,
                     [&](const dxf::Tag&, Handle handle) { handles.insert(handle); });
    }
    return handles;
  }

  const Store& store_;
  Faults& faults_;
  std::unordered_map<std::uint32_t, std::unordered_set<Handle>> owned_;
};

void check_next_handle(const Store& store, Faults& faults) {
  const RecordId header = store.landmarks.header;
  if (header == RecordId::none || !store.has_handles || store.by_handle.empty()) return;
  const dxf::RecordReader reader(store.bytes(header), store.format);
  const Handle seed = parse_handle(reader.variable("$HANDSEED"));
  if (seed == 0 || store.gave_handles) return;
  for (const std::uint32_t number : store.by_handle) {
    const Record& record = store.records[number];
    if (record.handle < seed || record.is(Record::handle_is_ours)) continue;
    return faults.add("next handle", static_cast<RecordId>(number), 0,
                      "its handle is not below the next one, $HANDSEED #" + handle_text(seed));
  }
}

}  // namespace

void check_handles(const Store& store, Faults& faults) {
  check_next_handle(store, faults);
  if (!store.format.has_subclasses()) return;
  HandleCheck check(store, faults);
  for (std::uint32_t i = 0; i < store.records.size(); ++i) {
    const Record& record = store.records[i];
    if (!record.is(Record::erased)) check.check(static_cast<RecordId>(i));
  }
}

}  // namespace velmar::drawing
