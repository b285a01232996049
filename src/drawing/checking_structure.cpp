#include "drawing/block_records.h"
#include "drawing/checker.h"
#include "drawing/dxf/record_tags.h"

namespace velmar::drawing {
namespace {

void check_blocks(const Store& store, Faults& faults) {
  if (!store.format.has_subclasses()) return;
  for (std::uint32_t i = 0; i < store.spaces.size(); ++i) {
    const Space& space = store.spaces[i];
    const RecordId row = block_row(store, static_cast<SpaceId>(i));
    if (space.erased || (row == RecordId::none) == (space.block == RecordId::none)) continue;
    if (row != RecordId::none) {
      faults.add("block", row, 0, "block \"" + space.name + "\" has a row but no BLOCK");
    } else {
      faults.add("block", space.block, 0, "block \"" + space.name + "\" has no row in its table");
    }
  }
}

bool says_parts_follow(const Store& store, RecordId id) {
  const dxf::RecordTags record(store.bytes(id), store.format);
  for (std::size_t i = 1; i < record.xdata(); ++i) {
    const dxf::Tag& tag = record.tags()[i];
    if (tag.code == 66 && !tag.in_group) {
      return dxf::integer_value(record.bytes(), tag, store.format).value_or(0) == 1;
    }
  }
  return false;
}

/// VERTEX and ATTRIB records go on to a SEQEND.
void check_parts(const Store& store, RecordId id, Faults& faults) {
  bool any = false;
  for (RecordId part = store.next(id); index(part) < store.records.size();
       part = store.next(part)) {
    const Record& record = store.at(part);
    if (!record.is(Record::part)) break;
    if (record.is(Record::erased)) continue;
    if (record.kind == Kind::seqend) return;
    any = true;
  }
  const bool is_polyline = store.at(id).kind == Kind::polyline;
  if (!any && !is_polyline && !says_parts_follow(store, id)) return;
  const std::string_view parts = is_polyline ? "vertices" : "attributes";
  faults.add("SEQEND", id, 0,
             any ? "no SEQEND ends its " + std::string(parts)
                 : "its " + std::string(parts) + " and their SEQEND are missing");
}

}  // namespace

void check_structure(const Store& store, Faults& faults) {
  check_blocks(store, faults);
  for (std::uint32_t i = 0; i < store.records.size(); ++i) {
    const Record& record = store.records[i];
    const bool has_parts = record.kind == Kind::insert || record.kind == Kind::polyline;
    const bool is_entity = record.space != SpaceId::none && !record.is(Record::erased);
    if (has_parts && is_entity) check_parts(store, static_cast<RecordId>(i), faults);
  }
}

}  // namespace velmar::drawing
