#include <algorithm>
#include <optional>
#include <string_view>

#include "drawing/entities/text.h"
#include "drawing/entities/text_layout.h"
#include "drawing/geometry/stroke_font.h"

namespace velmar::drawing {

namespace {

/// What one `%%` code stands for, and how many bytes of the text it takes.
struct Code {
  std::string drawn;
  std::size_t size = 3;
};

bool is_digit(char c) { return c >= '0' && c <= '9'; }

/// `%%nnn`: the character of that number, up to 255; numbers below a blank's draw nothing.
std::optional<Code> numbered_code(std::string_view digits) {
  if (digits.size() < 3 || !std::all_of(digits.begin(), digits.begin() + 3, is_digit)) return {};
  const int number = (digits[0] - '0') * 100 + (digits[1] - '0') * 10 + (digits[2] - '0');
  if (number > 255) return {};
  Code code{{}, 5};
  if (number >= 128)
    code.drawn = {static_cast<char>(0xC0 | (number >> 6)),
                  static_cast<char>(0x80 | (number & 0x3F))};
  else if (number >= 32)
    code.drawn = static_cast<char>(number);
  return code;
}

/// `text` begins with "%%".
std::optional<Code> percent_code(std::string_view text) {
  if (text.size() < 3) return {};
  switch (text[2]) {
    case 'c':
    case 'C':
      return Code{"\u00D8"};
    case 'd':
    case 'D':
      return Code{"\u00B0"};
    case 'p':
    case 'P':
      return Code{"\u00B1"};
    case '%':
      return Code{"%"};
    case 'u':
    case 'U':
    case 'o':
    case 'O':
    case 'k':
    case 'K':
      return Code{};
    default:
      return numbered_code(text.substr(2));
  }
}

}  // namespace

std::string plain_text(const Text& text) {
  std::string plain;
  for (std::string_view rest = text.text; !rest.empty();) {
    const auto code = rest.substr(0, 2) == "%%" ? percent_code(rest) : std::nullopt;
    plain += code ? std::string_view(code->drawn) : rest.substr(0, 1);
    rest.remove_prefix(code ? code->size : 1);
  }
  return plain;
}

TextSize natural_size(const Text& text) {
  TextSize size;
  double pen = 0;
  const std::string plain = plain_text(text);
  for (std::string_view rest = plain; !rest.empty();) {
    const char32_t character = next_character(rest);
    const Glyph glyph = stroke_glyph(character);
    pen += glyph.advance;
    if (is_blank(character) || glyph.advance == 0) continue;
    size.width = pen - glyph.gap;
    size.ascent = std::max(size.ascent, glyph.top);
    size.descent = std::max(size.descent, glyph.bottom);
  }
  return {size.width * text.height * text.width_factor, size.ascent * text.height,
          size.descent * text.height};
}

TextSize measure(const Text& text) { return natural_size(stretched(text)); }

}  // namespace velmar::drawing
