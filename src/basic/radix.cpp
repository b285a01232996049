#include "basic/radix.h"

#include <cstdint>

#include "basic/failure.h"

namespace velmar::basic {
namespace {

constexpr std::uint64_t bits16 = 0xFFFF, bits32 = 0xFFFFFFFF;

/// 0, 8 or 16.
unsigned radix_of(std::string_view text) {
  if (text.size() < 2 || text[0] != '&') return 0;
  if (text[1] == 'H' || text[1] == 'h') return 16;
  if (text[1] == 'O' || text[1] == 'o') return 8;
  return 0;
}

/// The value of a digit; 16 for any other character.
unsigned digit_value(char c) {
  if (c >= '0' && c <= '9') return static_cast<unsigned>(c - '0');
  if (c >= 'A' && c <= 'F') return static_cast<unsigned>(c - 'A' + 10);
  if (c >= 'a' && c <= 'f') return static_cast<unsigned>(c - 'a' + 10);
  return 16;
}

double as_signed(std::uint64_t value, char type) {
  if (value > bits32) throw Failure(overflow);
  if (value > bits16 && type == '%') throw Failure(overflow);
  if (value > bits16 || type == '&') return static_cast<std::int32_t>(value);
  return static_cast<std::int16_t>(value);
}

}  // namespace

RadixNumber read_radix(std::string_view text, bool type_characters) {
  const unsigned radix = radix_of(text);
  if (radix == 0) return {.rest = text};
  std::uint64_t value = 0;
  bool has_digits = false;
  for (text.remove_prefix(2); !text.empty(); text.remove_prefix(1)) {
    if (std::string_view("\t\n\r ").find(text.front()) != std::string_view::npos) continue;
    const unsigned digit = digit_value(text.front());
    if (digit >= radix) break;
    if (value <= bits32) value = value * radix + digit;
    has_digits = true;
  }
  char type = '\0';
  if (type_characters && (text.starts_with('%') || text.starts_with('&'))) {
    type = text.front();
    text.remove_prefix(1);
  }
  return {as_signed(value, type), has_digits, text};
}

}  // namespace velmar::basic
