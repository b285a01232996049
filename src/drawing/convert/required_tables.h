#pragma once

#include "drawing/convert/tag_drawing.h"

namespace velmar::drawing {

/// Adds the tables that AC1015 and later must have, with their standard rows, and rows of layers,
/// linetypes, styles and applications that something names; and what a DIMSTYLE of R12 names as
/// handles. Part of add_required_parts.
void add_required_tables(TagDrawing& drawing);

}  // namespace velmar::drawing
