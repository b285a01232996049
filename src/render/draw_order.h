#pragma once

#include <vector>

#include "drawing/drawing.h"

namespace velmar::render {

/// The entities of a space as they lie above one another, the lowest first: in the drawing's order,
/// but for those that the space's own table of orders (SORTENTSTABLE) puts elsewhere.
std::vector<drawing::RecordId> draw_order(const drawing::Drawing& drawing, drawing::SpaceId space);

}  // namespace velmar::render
