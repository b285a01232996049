#include "embedded/picked.h"

#include <algorithm>

#include "drawing/extents.h"
#include "embedded/answers.h"
#include "embedded/current.h"
#include "embedded/picking.h"

namespace velmar::embedded {
namespace {

using drawing::Point;
using drawing::Record;
using drawing::RecordId;

using Entities = Reading<std::vector<RecordId>>;

Point point_of(const drawing::Drawing& drawing, RecordId id) {
  for (const auto& chain : outlines(drawing, id)) {
    if (!chain.empty()) return chain.front();
  }
  return {};
}

Reading<Picked> by_handle(const DocumentState& document, drawing::Handle handle) {
  const drawing::Drawing& drawing = document.drawing;
  const std::string name = "#" + drawing::handle_text(handle);
  RecordId id = drawing.find(handle);
  if (id == RecordId::none) return {{}, "There is no object " + name + "."};
  if (drawing.record(id).is(Record::erased)) return {{}, "The object " + name + " was erased."};
  if (drawing.record(id).is(Record::part)) id = drawing.whole(id);
  const drawing::SpaceId space = drawing.record(id).space;
  if (space == drawing::SpaceId::none) return {{}, "The object " + name + " is no entity."};
  if (!is_sheet(drawing, space)) {
    return {{}, "The entity " + name + " belongs to a block definition."};
  }
  return {Picked{id, point_of(drawing, id)}, {}};
}

/// Of the current space, without those on frozen layers.
std::vector<RecordId> all(const DocumentState& document) {
  const drawing::Drawing& drawing = document.drawing;
  std::vector<RecordId> entities = drawing.entities(current_space(document));
  std::erase_if(entities, [&](RecordId id) {
    const drawing::LayerId layer = drawing.record(id).layer;
    return layer != drawing::LayerId::none && drawing.layer(layer).frozen();
  });
  return entities;
}

std::vector<RecordId> previous(const DocumentState& document) {
  std::vector<RecordId> entities = document.previous_selection;
  std::erase_if(entities,
                [&](RecordId id) { return document.drawing.record(id).is(Record::erased); });
  return entities;
}

Entities within(const DocumentState& document, std::string_view corners_text, Reach reach) {
  const auto corners = read_corners(corners_text);
  if (!corners) return {{}, "Requires two corners: W x1,y1 x2,y2."};
  return {entities_within(document.drawing, current_space(document), *corners, reach), {}};
}

}  // namespace

Reading<Picked> read_entity(const DocumentState& document, std::string_view typed) {
  typed = trimmed(typed);
  const drawing::Drawing& drawing = document.drawing;
  const drawing::SpaceId space = current_space(document);
  if (const auto handle = read_handle(typed)) return by_handle(document, *handle);
  if (const auto point = read_point(typed, {})) {
    return {Picked{entity_at(drawing, space, *point), *point}, {}};
  }
  if (same_word(typed, "L")) {
    const RecordId last = last_visible(drawing, space);
    if (last == RecordId::none) return {{}, "Nothing is drawn here."};
    return {Picked{last, point_of(drawing, last)}, {}};
  }
  return {{}, "Requires an entity: #handle, x,y or L."};
}

Entities read_selection(const DocumentState& document, std::string_view typed) {
  typed = trimmed(typed);
  const std::string_view word = typed.substr(0, typed.find(' '));
  const std::string_view rest = typed.substr(word.size());
  if (same_word(typed, "ALL")) return {all(document), {}};
  if (same_word(typed, "P")) {
    if (document.previous_selection.empty()) return {{}, "There is no previous selection."};
    return {previous(document), {}};
  }
  if (same_word(word, "W")) return within(document, rest, Reach::window);
  if (same_word(word, "C")) return within(document, rest, Reach::crossing);
  Reading<Picked> one = read_entity(document, typed);
  if (!one.value) return {{}, "Requires entities: #handle, x,y, L, ALL, P, W or C. " + one.refused};
  if (one.value->entity == RecordId::none) return {{}, "There is nothing at that point."};
  return {std::vector{one.value->entity}, {}};
}

}  // namespace velmar::embedded
