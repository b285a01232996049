#pragma once

#include "drawing/convert/loss.h"
#include "drawing/convert/tag_drawing.h"
#include "drawing/drawing.h"

namespace velmar::drawing {

/// Makes of a drawing of a later release one of R12: `written` was taken from `drawing`.
void lower_to_r12(TagDrawing& written, const Drawing& drawing, LossList& losses);

}  // namespace velmar::drawing
