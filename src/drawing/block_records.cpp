#include "drawing/block_records.h"

#include "drawing/dxf/field_writer.h"
#include "drawing/dxf/record_builder.h"
#include "drawing/erasing.h"
#include "drawing/history.h"

namespace velmar::drawing {
namespace {

RecordId add_kind(Store& store, RecordId before, Kind kind) {
  Record record;
  record.kind = kind;
  const RecordId id = store.add(before, record, {});
  store.give_handle(id);
  return id;
}

void set_bytes(Store& store, RecordId id, const dxf::RecordBuilder& record) {
  store.patches[static_cast<std::uint32_t>(id)] = record.bytes();
}

/// The handle of the new row, which entities name as their owner.
Handle add_row(Store& store, std::string_view name, Handle layout) {
  const auto table = store.tables.find("BLOCK_RECORD");
  if (table == store.tables.end() || table->second.end == RecordId::none) {
    throw Error(store.name + ": no block can be added: the file has no BLOCK_RECORD table");
  }
  const dxf::Format& format = store.format;
  const RecordId id = add_kind(store, table->second.end, Kind::block_record);
  dxf::RecordBuilder row("BLOCK_RECORD", format);
  row.handle(5, store.at(id).handle).owner(store.at(table->second.begin).handle);
  row.marker("AcDbSymbolTableRecord").marker("AcDbBlockTableRecord").text(2, name);
  if (format.version >= "AC1015") row.handle(340, layout);
  if (format.version >= "AC1021") row.integer(70, 0).integer(280, 1).integer(281, 0);
  set_bytes(store, id, row);
  return store.at(id).handle;
}

/// The first tags of BLOCK and ENDBLK.
dxf::RecordBuilder begun(const Store& store, RecordId id, Handle owner, bool in_paper) {
  dxf::RecordBuilder record(store.kind_name(store.at(id).kind), store.format);
  if (store.has_handles) record.handle(5, store.at(id).handle);
  record.owner(owner).marker("AcDbEntity");
  if (in_paper) record.integer(67, 1);
  record.text(8, "0");
  return record;
}

template <class Fields>
void edit(Store& store, RecordId id, std::string_view subclass, Fields fields) {
  if (id == RecordId::none) return;
  const dxf::RecordTags record(store.bytes(id), store.format);
  dxf::FieldWriter writer(record);
  writer.subclass(subclass);
  fields(writer);
  if (writer.changed()) store.patch(id, writer.result());
}

}  // namespace

RecordId block_row(const Store& store, SpaceId id) {
  return store.find(store.spaces[index(id)].owner);
}

SpaceId add_block_records(Store& store, std::string_view name, Point base, Handle layout) {
  const RecordId end = store.landmarks.end_of_blocks;
  if (end == RecordId::none) {
    throw Error(store.name + ": no block can be added: the file has no BLOCKS section");
  }
  Space space;
  space.name = name;
  space.base = base;
  space.is_layout = layout != 0;
  if (store.format.has_subclasses()) space.owner = add_row(store, name, layout);
  space.block = add_kind(store, end, Kind::block);
  dxf::RecordBuilder block = begun(store, space.block, space.owner, space.is_layout);
  block.marker("AcDbBlockBegin").text(2, name).integer(70, 0).point(10, base).text(3, name);
  if (store.format.has_subclasses()) block.text(1, "");
  set_bytes(store, space.block, block);
  space.endblk = add_kind(store, end, Kind::endblk);
  set_bytes(store, space.endblk,
            begun(store, space.endblk, space.owner, space.is_layout).marker("AcDbBlockEnd"));
  store.spaces.push_back(std::move(space));
  return static_cast<SpaceId>(store.spaces.size() - 1);
}

void erase_block_records(Store& store, SpaceId id) {
  Space& space = store.spaces[index(id)];
  for (const RecordId entity : space.entities) erase_entity(store, entity);
  for (const RecordId record : {block_row(store, id), space.block, space.endblk}) {
    if (record != RecordId::none) mark_erased(store, record);
  }
  store.edited();
  if (store.history) store.history->take(store, id);
  space = Space{};
  space.erased = true;
}

void write_block_name(Store& store, SpaceId id, const std::string& name) {
  if (store.history) store.history->remember(store, id);
  Space& space = store.spaces[index(id)];
  edit(store, block_row(store, id), "AcDbBlockTableRecord",
       [&](dxf::FieldWriter& row) { row("Name", 2, name); });
  edit(store, space.block, "AcDbBlockBegin", [&](dxf::FieldWriter& block) {
    block("Name", 2, name);
    block("Name2", 3, name, unless{name});
  });
  space.name = name;
  store.space_names.forget();
}

}  // namespace velmar::drawing
