#include "drawing/fonts/line_measure.h"

#include <algorithm>

#include "drawing/fonts/characters.h"

namespace velmar::drawing {

LineMeasure measure_line(const Font& font, std::string_view text, double tracking) {
  LineMeasure line;
  double drawn_end = 0;
  bool blank_first = false;
  while (!text.empty()) {
    const char32_t character = next_character(text);
    const Glyph glyph = font.glyph(character);
    if (glyph.drawn) {
      if (!line.drawn) line.left = blank_first ? 0 : line.advance + glyph.left;
      const bool first = !line.drawn;
      line.drawn = true;
      line.right = std::max(line.right, line.advance + glyph.right);
      line.top = first ? glyph.top : std::max(line.top, glyph.top);
      line.bottom = first ? glyph.bottom : std::max(line.bottom, glyph.bottom);
    }
    blank_first = blank_first || (!line.drawn && glyph.advance > 0);
    line.advance += glyph.advance * tracking;
    if (glyph.drawn) drawn_end = line.advance;
  }
  line.width = font.aligns_by_advance() ? drawn_end : line.right - line.left;
  return line;
}

}  // namespace velmar::drawing
