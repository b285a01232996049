#pragma once

#include "drawing/entities/text.h"

namespace velmar::drawing {

/// The size that the text's own height and width factor give.
TextSize natural_size(const Text& text);

/// The text as it is drawn between its two points: of an aligned text the height is changed (and
/// the width with it), of a fitted one the width factor, so that it reaches from one to the other.
/// Other texts, and those whose points coincide, are left as they are.
Text stretched(const Text& text);

}  // namespace velmar::drawing
