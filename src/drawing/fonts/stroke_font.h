#pragma once

#include <string_view>

#include "drawing/fonts/font.h"

namespace velmar::drawing {

/// The metric of a font of single strokes, by its name ("txt", "isocp.shx", in any letter case).
/// The Roman simplex letters of A. V. Hershey (Calligraphy for Computers, 1967), on whose grid a
/// capital has 21 units, stand for "simplex", "romans" and every name not known; "txt" and
/// "monotxt" have letters on a grid of 6 units to a capital, "isocp" narrow ones, "gdt" symbols of
/// tolerance frames in place of the small letters.
/// Characters that the letters lack are measured alike: accented ones as their letter, others as a
/// capital, wide ones (Chinese, Japanese, Korean) as a square.
FontPointer stroke_font(std::string_view name = {});

}  // namespace velmar::drawing
