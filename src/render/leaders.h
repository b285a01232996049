#pragma once

#include "drawing/drawing.h"
#include "render/canvas.h"

namespace velmar::render {

/// The way of a leader and its arrow, in the size that its style says.
void draw_leader(const drawing::Drawing& drawing, drawing::RecordId id,
                 const drawing::Leader& leader, const Canvas& canvas, const Look& look);

/// A closed and filled arrow whose tip is there; nothing where the way is shorter than two of it.
Chain arrow(Point tip, Point next, double size);

}  // namespace velmar::render
