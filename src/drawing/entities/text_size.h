#pragma once

#include "drawing/entities/text.h"

namespace velmar::drawing {

/// The font of a text; the plain stroke font where the drawing has set none.
const Font& font_of(const Text& text);

/// The size that the text's own height and width factor give.
TextSize natural_size(const Text& text);

/// The text as it is drawn between its two points: of an aligned text the height is changed (and
/// the width with it), of a fitted one the width factor, so that it reaches from one to the other.
/// Other texts, and those whose points coincide, are left as they are.
Text stretched(const Text& text);

/// From where the first character begins on the baseline to the OCS, for a stretched text.
Matrix text_plane(const Text& text);

}  // namespace velmar::drawing
