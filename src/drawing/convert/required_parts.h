#pragma once

#include "drawing/convert/tag_drawing.h"

namespace velmar::drawing {

/// Adds what a drawing of AC1015 and later must have and this one has not: tables with their
/// standard rows, rows of layers that entities name, a row for each block, the two spaces, the
/// dictionary of dictionaries with layouts, multiline and plot styles; handles and owners. What is
/// there stays as it is.
void add_required_parts(TagDrawing& drawing);

}  // namespace velmar::drawing
