#include "drawing/sheet_viewport.h"

#include <cstdlib>

namespace velmar::drawing {

RecordId sheet_viewport(const Drawing& drawing, SpaceId sheet) {
  constexpr int number_code = 69;
  RecordId first = RecordId::none;
  for (const RecordId id : drawing.entities(sheet)) {
    if (drawing.record(id).kind != Kind::viewport) continue;
    if (first == RecordId::none) first = id;
    if (std::strtol(drawing.row_text(id, number_code).c_str(), nullptr, 10) == 1) return id;
  }
  return first;
}

}  // namespace velmar::drawing
