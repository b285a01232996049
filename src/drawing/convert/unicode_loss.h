#pragma once

#include "drawing/convert/loss.h"
#include "drawing/convert/tag_drawing.h"

namespace velmar::drawing {

/// Counts texts with characters that the code page of the format does not have: R12 does not know
/// what stands for them (`\U+XXXX`); later releases do, for these it is a note.
void count_unicode_losses(TagDrawing& drawing, const dxf::Format& format, LossList& losses);

}  // namespace velmar::drawing
