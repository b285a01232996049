#pragma once

#include <cstdint>
#include <string_view>

namespace velmar::drawing {

/// Measures of a plain sans-serif stroke font in units of its capital height: those of the Hershey
/// "Roman simplex" letters (A. V. Hershey, Calligraphy for Computers, 1967), whose grid has 21
/// units to a capital.
struct Glyph {
  double advance = 0;  // to where the next character begins
  double gap = 0;      // between the right end of the strokes and that place
  double top = 0;      // of the strokes, above the baseline
  double bottom = 0;   // of the strokes, below the baseline, positive
};

/// How far the font goes below the baseline.
inline constexpr double stroke_font_descent = 7.0 / 21;

/// Characters that the font has not are measured alike: as a capital, wide ones (Chinese, Japanese,
/// Korean) as a square, combining marks and control characters as nothing.
Glyph stroke_glyph(char32_t character);
bool is_blank(char32_t character);

/// Takes the first character off UTF-8 text. A byte that begins no character is one by itself, the
/// replacement character U+FFFD.
char32_t next_character(std::string_view& text);

}  // namespace velmar::drawing
