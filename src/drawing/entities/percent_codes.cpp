#include "drawing/entities/percent_codes.h"

#include <algorithm>

namespace velmar::drawing {
namespace {

bool is_digit(char c) { return c >= '0' && c <= '9'; }

/// `%%nnn`: the character of that number, up to 255; numbers below a blank's draw nothing.
std::optional<PercentCode> numbered_code(std::string_view digits) {
  if (digits.size() < 3 || !std::all_of(digits.begin(), digits.begin() + 3, is_digit)) return {};
  const int number = (digits[0] - '0') * 100 + (digits[1] - '0') * 10 + (digits[2] - '0');
  if (number > 255) return {};
  PercentCode code{{}, 5, 0};
  if (number >= 128)
    code.drawn = {static_cast<char>(0xC0 | (number >> 6)),
                  static_cast<char>(0x80 | (number & 0x3F))};
  else if (number >= 32)
    code.drawn = static_cast<char>(number);
  return code;
}

}  // namespace

std::optional<PercentCode> percent_code(std::string_view text) {
  if (text.size() < 3 || !text.starts_with("%%")) return {};
  switch (text[2]) {
    case 'c':
    case 'C':
      return PercentCode{"\u00D8", 3, 0};
    case 'd':
    case 'D':
      return PercentCode{"\u00B0", 3, 0};
    case 'p':
    case 'P':
      return PercentCode{"\u00B1", 3, 0};
    case '%':
      return PercentCode{"%", 3, 0};
    case 'u':
    case 'U':
    case 'o':
    case 'O':
    case 'k':
    case 'K':
      return PercentCode{{}, 3, static_cast<char>(text[2] | 0x20)};
    default:
      return numbered_code(text.substr(2));
  }
}

}  // namespace velmar::drawing
