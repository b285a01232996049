#pragma once

#include "drawing/convert/loss.h"
#include "drawing/convert/tag_drawing.h"

namespace velmar::drawing {

/// Makes of a drawing of R12 one with subclasses, handles and the names of AC1015; what that
/// release wants beside it is left to add_required_parts.
void lift_from_r12(TagDrawing& drawing, LossList& losses);

}  // namespace velmar::drawing
