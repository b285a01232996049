#include "drawing/followers.h"

#include <set>

#include "drawing/block_records.h"
#include "drawing/dimension/drawn_kinds.h"
#include "drawing/dxf/field_reader.h"
#include "drawing/dxf/field_writer.h"
#include "drawing/dxf/reactors.h"
#include "drawing/entities/hatch.h"
#include "drawing/erasing.h"
#include "drawing/references.h"

namespace velmar::drawing {
namespace {

bool names_any(const Store& store, RecordId id, const Handles& handles) {
  bool found = false;
  each_reference(store.bytes(id), store.format,
                 [&](const dxf::Tag&, Handle named) { found = found || handles.contains(named); });
  return found;
}

template <class Visit>
void each_live(const Store& store, Visit visit) {
  for (std::uint32_t i = 0; i < store.records.size(); ++i) {
    if (!store.records[i].is(Record::erased))
      visit(static_cast<RecordId>(i), store.records[i].kind);
  }
}

/// The sources that are still there are told no more.
void remove_reactors(Store& store, const Hatch& hatch, Handle reactor) {
  for (const HatchLoop& loop : hatch.loops) {
    for (const std::string& source : loop.sources) {
      const RecordId id = store.find(parse_handle(source));
      if (id == RecordId::none || store.at(id).is(Record::erased)) continue;
      mend(store, id, dxf::without_reactor(store.bytes(id), reactor, store.format));
    }
  }
}

bool follows_any(const Hatch& hatch, const Handles& handles) {
  for (const HatchLoop& loop : hatch.loops) {
    for (const std::string& source : loop.sources) {
      if (handles.contains(parse_handle(source))) return true;
    }
  }
  return false;
}

void detach_hatch(Store& store, RecordId id, const Handles& gone) {
  Hatch hatch;
  const dxf::RecordTags record(store.bytes(id), store.format);
  dxf::FieldReader reader(record);
  fields(reader, hatch);
  if (hatch.associative == 0 || reader.problem() || !follows_any(hatch, gone)) return;
  remove_reactors(store, hatch, store.at(id).handle);
  detach(hatch);
  dxf::FieldWriter writer(record);
  fields(writer, hatch);
  if (writer.changed()) store.patch(id, writer.result());
}

/// The block that a dimension or a reference shows; none where there is no such block.
SpaceId shown_block(const Store& store, RecordId id) {
  constexpr int name_code = 2;
  const std::string_view bytes = store.bytes(id);
  dxf::TagCursor cursor(bytes, store.format);
  dxf::Tag tag;
  while (cursor.next(tag)) {
    if (tag.code != name_code) continue;
    return store.find_space(dxf::text_value(bytes, tag, store.format)).value_or(SpaceId::none);
  }
  return SpaceId::none;
}

/// What a leader leads to, or 0.
Handle annotation_of(const Store& store, RecordId leader) {
  constexpr int annotation_code = 340;
  Handle annotation = 0;
  each_reference(store.bytes(leader), store.format, [&](const dxf::Tag& tag, Handle named) {
    if (tag.code == annotation_code) annotation = named;
  });
  return annotation;
}

bool is_drawn_block(const Space& space) {
  return space.name.starts_with("*D") || space.name.starts_with("*d");
}

/// What a dimension is drawn with is told of as the dimension.
void erase_drawn_block(Store& store, SpaceId id) {
  const std::vector<RecordId> content = store.spaces[index(id)].entities;
  erase_block_records(store, id);
  for (const RecordId entity : content) {
    store.erased_since_save.erase(static_cast<std::uint32_t>(entity));
  }
}

}  // namespace

void erase_associations(Store& store, const Handles& gone) {
  std::vector<RecordId> broken;
  each_live(store, [&](RecordId id, Kind kind) {
    if (kind < Kind::others || store.kind_name(kind) != "DIMASSOC") return;
    if (names_any(store, id, gone)) broken.push_back(id);
  });
  for (const RecordId id : broken) mark_erased(store, id);
}

void detach_hatches(Store& store, const Handles& gone) {
  std::vector<RecordId> followers;
  each_live(store, [&](RecordId id, Kind kind) {
    if (kind == Kind::hatch && names_any(store, id, gone)) followers.push_back(id);
  });
  for (const RecordId id : followers) detach_hatch(store, id, gone);
}

void release_leaders(Store& store, const Handles& gone) {
  constexpr std::int32_t no_annotation = 3;
  const std::string nothing = "0";
  std::vector<RecordId> released;
  each_live(store, [&](RecordId id, Kind kind) {
    if (kind == Kind::leader && gone.contains(annotation_of(store, id))) released.push_back(id);
  });
  for (const RecordId id : released) {
    const dxf::RecordTags record(store.bytes(id), store.format);
    dxf::FieldWriter writer(record);
    writer.subclass("AcDbLeader");
    writer("AnnotationType", 73, no_annotation);
    writer("Annotation", 340, nothing);
    if (writer.changed()) store.patch(id, writer.result());
  }
}

void erase_drawn_blocks(Store& store, const std::unordered_set<std::uint32_t>& dimensions) {
  std::set<SpaceId> unused;
  for (const std::uint32_t dimension : dimensions) {
    const SpaceId block = shown_block(store, static_cast<RecordId>(dimension));
    if (block != SpaceId::none && is_drawn_block(store.spaces[index(block)])) unused.insert(block);
  }
  if (unused.empty()) return;
  each_live(store, [&](RecordId id, Kind kind) {
    if (shows_drawn_block(kind) || kind == Kind::insert) unused.erase(shown_block(store, id));
  });
  for (const SpaceId id : unused) erase_drawn_block(store, id);
}

}  // namespace velmar::drawing
