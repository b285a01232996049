#pragma once

#include <string_view>

#include "drawing/convert/loss.h"
#include "drawing/convert/tag_drawing.h"

namespace velmar::drawing {

/// Takes out what a release from AC1015 on does not have and the drawing's own, later one has.
void lower_release(TagDrawing& drawing, std::string_view to, LossList& losses);
/// Adds what a release demands and the drawing's own, earlier one (from AC1015 on) has not.
void raise_release(TagDrawing& drawing, std::string_view to, LossList& losses);

}  // namespace velmar::drawing
