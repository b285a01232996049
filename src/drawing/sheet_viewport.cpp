#include "drawing/sheet_viewport.h"

namespace velmar::drawing {

RecordId sheet_viewport(const Drawing& drawing, SpaceId sheet) {
  constexpr int number_code = 69;
  RecordId first = RecordId::none;
  for (const RecordId id : drawing.entities(sheet)) {
    if (drawing.record(id).kind != Kind::viewport) continue;
    if (first == RecordId::none) first = id;
    if (drawing.row_text(id, number_code) == "1") return id;
  }
  return first;
}

}  // namespace velmar::drawing
