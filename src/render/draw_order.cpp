#include "render/draw_order.h"

#include <algorithm>
#include <map>

#include "render/tag_reader.h"

namespace velmar::render {
namespace {

using drawing::Drawing;
using drawing::Handle;
using drawing::RecordId;

RecordId order_table(const Drawing& drawing, drawing::SpaceId space) {
  const RecordId block = drawing.find(drawing.spaces()[index(space)].owner);
  if (block == RecordId::none) return RecordId::none;
  const RecordId dictionary = drawing.extension_dictionary(block);
  if (dictionary == RecordId::none) return RecordId::none;
  for (const drawing::DictionaryEntry& entry : drawing.dictionary_entries(dictionary)) {
    if (entry.name == "ACAD_SORTENTS") return drawing.find(entry.object);
  }
  return RecordId::none;
}

/// Of each entity that the table names, the handle whose place it takes.
std::map<Handle, Handle> places(const Drawing& drawing, RecordId table) {
  constexpr int entity_code = 331, place_code = 5;
  std::map<Handle, Handle> list;
  Handle entity = 0;
  TagReader tag(drawing, table);
  while (tag.next()) {
    if (tag.code() == entity_code) entity = tag.handle();
    if (tag.code() == place_code && entity != 0) list[entity] = tag.handle();
  }
  return list;
}

}  // namespace

std::vector<RecordId> draw_order(const Drawing& drawing, drawing::SpaceId space) {
  std::vector<RecordId> entities = drawing.entities(space);
  const RecordId table = order_table(drawing, space);
  if (table == RecordId::none) return entities;
  const std::map<Handle, Handle> list = places(drawing, table);
  if (list.empty()) return entities;
  const auto place = [&](RecordId id) {
    const Handle handle = drawing.record(id).handle;
    const auto found = list.find(handle);
    return found == list.end() ? handle : found->second;
  };
  std::ranges::stable_sort(entities, {}, place);
  return entities;
}

}  // namespace velmar::render
