#pragma once

#include "drawing/convert/loss.h"
#include "drawing/convert/tag_drawing.h"

namespace velmar::drawing {

/// Names of a drawing of R12 have at most 31 letters, digits, `$`, `-`, `_`: others are replaced
/// everywhere, and counted.
void fit_names_to_r12(TagDrawing& drawing, LossList& losses);

}  // namespace velmar::drawing
