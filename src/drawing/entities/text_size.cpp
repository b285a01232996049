#include "drawing/entities/text_size.h"

#include <algorithm>
#include <string_view>

#include "drawing/entities/percent_codes.h"
#include "drawing/fonts/line_measure.h"
#include "drawing/fonts/stroke_font.h"

namespace velmar::drawing {

std::string plain_text(const Text& text) {
  std::string plain;
  for (std::string_view rest = text.text; !rest.empty();) {
    const auto code = percent_code(rest);
    plain += code ? std::string_view(code->drawn) : rest.substr(0, 1);
    rest.remove_prefix(code ? code->size : 1);
  }
  return plain;
}

const Font& font_of(const Text& text) {
  static const FontPointer otherwise = stroke_font();
  return text.font ? *text.font : *otherwise;
}

TextSize natural_size(const Text& text) {
  const LineMeasure line = measure_line(font_of(text), plain_text(text));
  const double along = text.height * text.width_factor;
  return {line.width * along,
          std::max(line.top, 0.0) * text.height,
          std::max(line.bottom, 0.0) * text.height,
          line.left * along,
          line.right * along,
          line.drawn};
}

TextSize measure(const Text& text) { return natural_size(stretched(text)); }

}  // namespace velmar::drawing
