#include <charconv>

#include "drawing/dimension/drawn_kinds.h"
#include "drawing/drawing.h"
#include "drawing/dxf/tag.h"
#include "drawing/store.h"

namespace velmar::drawing {
namespace {

RecordId add_record(Store& store, RecordId before, Kind kind, std::string bytes) {
  Record record;
  record.kind = kind;
  return store.add(before, record, std::move(bytes));
}

/// The beginning of a record with a handle of its own: kind, handle, owner.
std::string head(Store& store, RecordId id, std::string_view kind, Handle owner) {
  const Handle handle = store.give_handle(id);
  std::string bytes;
  dxf::append_text(bytes, 0, kind, store.format);
  if (store.has_handles) dxf::append_text(bytes, 5, handle_text(handle), store.format);
  if (store.format.has_subclasses() && owner != 0) {
    dxf::append_text(bytes, 330, handle_text(owner), store.format);
  }
  return bytes;
}

void append_marker(const Store& store, std::string& bytes, std::string_view marker) {
  if (store.format.has_subclasses()) dxf::append_text(bytes, 100, marker, store.format);
}

/// The handle of the new block record; 0 where the file has no table of them.
Handle add_block_record(Store& store, const std::string& name) {
  const auto table = store.tables.find("BLOCK_RECORD");
  if (table == store.tables.end() || table->second.end == RecordId::none) return 0;
  const RecordId id = add_record(store, table->second.end, Kind::block_record, {});
  const Handle owner =
      table->second.begin == RecordId::none ? 0 : store.at(table->second.begin).handle;
  std::string bytes = head(store, id, "BLOCK_RECORD", owner);
  append_marker(store, bytes, "AcDbSymbolTableRecord");
  append_marker(store, bytes, "AcDbBlockTableRecord");
  dxf::append_text(bytes, 2, name, store.format);
  if (store.format.version >= "AC1015") dxf::append_text(bytes, 340, "0", store.format);
  store.patches[static_cast<std::uint32_t>(id)] = std::move(bytes);
  return store.at(id).handle;
}

/// Where blocks end; a file that has none gets a section for them before its entities.
RecordId end_of_blocks(Store& store) {
  if (store.landmarks.end_of_blocks != RecordId::none) return store.landmarks.end_of_blocks;
  if (store.landmarks.entities == RecordId::none) {
    throw Error(store.name + ": no block can be added: the file has no section ENTITIES");
  }
  std::string begin, end;
  dxf::append_text(begin, 0, "SECTION", store.format);
  dxf::append_text(begin, 2, "BLOCKS", store.format);
  dxf::append_text(end, 0, "ENDSEC", store.format);
  add_record(store, store.landmarks.entities, Kind::section, std::move(begin));
  return store.landmarks.end_of_blocks =
             add_record(store, store.landmarks.entities, Kind::endsec, std::move(end));
}

std::string block_bytes(Store& store, RecordId id, const Space& space) {
  const dxf::Format& format = store.format;
  std::string bytes = head(store, id, "BLOCK", space.owner);
  append_marker(store, bytes, "AcDbEntity");
  dxf::append_text(bytes, 8, "0", format);
  append_marker(store, bytes, "AcDbBlockBegin");
  dxf::append_text(bytes, 2, space.name, format);
  dxf::append_integer(bytes, 70, space.flags, format);
  for (const int code : {10, 20, 30}) dxf::append_real(bytes, code, 0, format);
  dxf::append_text(bytes, 3, space.name, format);
  if (format.has_subclasses()) dxf::append_text(bytes, 1, "", format);
  return bytes;
}

std::string endblk_bytes(Store& store, RecordId id, const Space& space) {
  std::string bytes = head(store, id, "ENDBLK", space.owner);
  append_marker(store, bytes, "AcDbEntity");
  dxf::append_text(bytes, 8, "0", store.format);
  append_marker(store, bytes, "AcDbBlockEnd");
  return bytes;
}

/// The largest n of the blocks "*Dn".
std::uint64_t largest_number(const std::vector<Space>& spaces) {
  std::uint64_t largest = 0;
  for (const Space& space : spaces) {
    const std::string& name = space.name;
    if (name.size() < 3 || name[0] != '*' || (name[1] != 'D' && name[1] != 'd')) continue;
    std::uint64_t number = 0;
    const auto end = std::from_chars(name.data() + 2, name.data() + name.size(), number);
    if (end.ec == std::errc() && number > largest) largest = number;
  }
  return largest;
}

}  // namespace

SpaceId Drawing::add_definition(const std::string& name, std::int32_t flags) {
  const RecordId end = end_of_blocks(*store_);
  Space space;
  space.name = name;
  space.flags = flags;
  space.owner = add_block_record(*store_, name);
  space.block = add_record(*store_, end, Kind::block, {});
  store_->patches[static_cast<std::uint32_t>(space.block)] =
      block_bytes(*store_, space.block, space);
  space.endblk = add_record(*store_, end, Kind::endblk, {});
  store_->patches[static_cast<std::uint32_t>(space.endblk)] =
      endblk_bytes(*store_, space.endblk, space);
  store_->spaces.push_back(std::move(space));
  return static_cast<SpaceId>(store_->spaces.size() - 1);
}

bool Drawing::is_drawn_by_several(SpaceId block) const {
  auto& shared = store_->shared_blocks;
  if (!shared) {
    shared.emplace();
    std::set<SpaceId> met;
    for (std::uint32_t i = 0; i < store_->source_count; ++i) {
      const auto id = static_cast<RecordId>(i);
      if (!shows_drawn_block(store_->at(id).kind)) continue;
      const auto shown = store_->find_space(row_text(id, 2));
      if (shown && !met.insert(*shown).second) shared->insert(*shown);
    }
  }
  return shared->contains(block);
}

SpaceId Drawing::add_drawn_block() {
  constexpr std::int32_t anonymous = 1;
  std::uint64_t& latest = store_->latest_drawn_block;
  if (latest == 0) latest = largest_number(store_->spaces);
  return add_definition("*D" + std::to_string(++latest), anonymous);
}

}  // namespace velmar::drawing
