#pragma once

#include "drawing/fonts/stroke_letters.h"

namespace velmar::drawing {

/// How wide the symbols are on the grid of the simplex letters.
inline constexpr double symbol_width = 32;

/// The symbol of geometric tolerances that the font "gdt" has for a small letter: j a position, m a
/// circled M. Nothing for other characters.
Strokes tolerance_symbol(char32_t character);

}  // namespace velmar::drawing
