#include "drawing/block_records.h"
#include "drawing/drawing.h"
#include "drawing/dxf/field_writer.h"
#include "drawing/erasing.h"
#include "drawing/history.h"
#include "drawing/store.h"

namespace velmar::drawing {
namespace {

/// The name of the block that an INSERT shows; others have none.
std::string block_shown_by(const Store& store, RecordId id) {
  const dxf::RecordTags record(store.bytes(id), store.format);
  dxf::TagRange range(record);
  range.any_subclass();
  const dxf::Tag* name = range.find(2);
  return name ? dxf::text_value(record.bytes(), *name, store.format) : std::string();
}

}  // namespace

SpaceId Drawing::add_block(const std::string& name, Point base) {
  return add_block_records(*store_, name, base, 0);
}

void Drawing::erase_block(SpaceId id) { erase_block_records(*store_, id); }

void Drawing::detach_reference(SpaceId id) {
  const std::string prefix = folded_name(store_->spaces.at(index(id)).name) + '|';
  const auto depends = [&](const std::string& name) {
    return folded_name(name).starts_with(prefix);
  };
  for (const RecordId reference : references_to(id)) erase(reference);
  erase_block(id);
  for (std::uint32_t i = 0; i < store_->spaces.size(); ++i) {
    if (!store_->spaces[i].erased && depends(store_->spaces[i].name)) {
      erase_block(static_cast<SpaceId>(i));
    }
  }
  for (const Layer& layer : store_->layers) {
    if (layer.record != RecordId::none && depends(layer.name)) mark_erased(*store_, layer.record);
  }
  for (const TableRow& row : store_->rows) {
    if (row.record != RecordId::none && depends(row.name)) mark_erased(*store_, row.record);
  }
  std::erase_if(store_->rows, [&](const TableRow& row) {
    return row.record != RecordId::none && store_->at(row.record).is(Record::erased);
  });
}

std::vector<RecordId> Drawing::references_to(SpaceId block) const {
  const std::string name = folded_name(store_->spaces.at(index(block)).name);
  std::vector<RecordId> found;
  for (std::uint32_t i = 0; i < store_->records.size(); ++i) {
    const Record& record = store_->records[i];
    if (record.kind != Kind::insert || record.is(Record::erased)) continue;
    const auto id = static_cast<RecordId>(i);
    if (folded_name(block_shown_by(*store_, id)) == name) found.push_back(id);
  }
  return found;
}

void Drawing::rename_block(SpaceId id, const std::string& name) {
  const std::vector<RecordId> references = references_to(id);
  write_block_name(*store_, id, name);
  for (const RecordId reference : references) {
    const dxf::RecordTags record(store_->bytes(reference), store_->format);
    dxf::FieldWriter writer(record);
    writer.any_subclass();
    writer("Name", 2, name);
    if (writer.changed()) store_->patch(reference, writer.result());
  }
}

void Drawing::write_block(SpaceId id, Point base, std::int32_t flags, const std::string& path) {
  Space& space = store_->spaces.at(index(id));
  if (space.block != RecordId::none) {
    const dxf::RecordTags record(store_->bytes(space.block), store_->format);
    dxf::FieldWriter writer(record);
    writer.subclass("AcDbBlockBegin");
    writer("Flags", 70, flags);
    writer("Origin", 10, base);
    writer("Path", 1, path, unless{space.path});
    if (writer.changed()) store_->patch(space.block, writer.result());
  }
  if (store_->history) store_->history->remember(*store_, id);
  space.base = base;
  space.flags = flags;
  space.path = path;
}

}  // namespace velmar::drawing
