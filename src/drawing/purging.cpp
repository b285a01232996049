#include "drawing/block_records.h"
#include "drawing/drawing.h"
#include "drawing/dxf/field_writer.h"
#include "drawing/erasing.h"
#include "drawing/history.h"
#include "drawing/uses.h"

namespace velmar::drawing {
namespace {

std::size_t live_rows(const Store& store, const TableMarks& marks) {
  std::size_t count = 0;
  for (RecordId id = store.next(marks.begin);
       id != marks.end && index(id) < store.records.size() && index(id) != store.source_count;
       id = store.next(id)) {
    if (!store.at(id).is(Record::erased)) ++count;
  }
  return count;
}

/// How many dimension styles the table lists itself, which it says as well.
std::int32_t listed(const dxf::RecordTags& record) {
  std::int32_t count = 0;
  for (const dxf::Tag& tag : record.tags()) count += tag.code == 340 && !tag.in_group ? 1 : 0;
  return count;
}

void write_count(Store& store, std::string_view table) {
  const auto found = store.tables.find(table);
  if (found == store.tables.end() || found->second.end == RecordId::none) return;
  const RecordId head = found->second.begin;
  const dxf::RecordTags record(store.bytes(head), store.format);
  dxf::FieldWriter writer(record);
  writer.subclass("AcDbSymbolTable");
  writer("Count", 70, static_cast<std::int32_t>(live_rows(store, found->second)));
  writer.subclass("AcDbDimStyleTable");
  writer("Listed", 71, listed(record), unless{listed(record)});
  if (writer.changed()) store.patch(head, writer.result());
}

}  // namespace

bool Drawing::erase_unused_block(SpaceId id) {
  settle_erased(*store_);
  Candidates candidates(*store_);
  mark_uses(*store_, candidates, {});
  const int number = candidates.of_space(id);
  if (number < 0 || candidates.list()[static_cast<std::size_t>(number)].used) return false;
  erase_block_records(*store_, id);
  return true;
}

std::size_t Drawing::purge(std::span<const std::string> names_in_use) {
  Store& store = *store_;
  settle_erased(store);
  Candidates candidates(store);
  mark_uses(store, candidates, names_in_use);
  std::size_t purged = 0;
  for (const Candidate& candidate : candidates.list()) {
    if (candidate.used) continue;
    ++purged;
    if (candidate.space != SpaceId::none) {
      erase_block_records(store, candidate.space);
    } else {
      mark_erased(store, candidate.record);
    }
  }
  if (purged == 0) return 0;
  store.edited();
  if (store.history) store.history->remember_rows(store);
  std::erase_if(store.rows, [&](const TableRow& row) {
    return row.record != RecordId::none && store.at(row.record).is(Record::erased);
  });
  settle_erased(store);
  for (const std::string_view table :
       {"LAYER", "LTYPE", "STYLE", "DIMSTYLE", "APPID", "BLOCK_RECORD"}) {
    write_count(store, table);
  }
  return purged;
}

}  // namespace velmar::drawing
