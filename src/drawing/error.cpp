#include "drawing/error.h"

#include <iterator>
#include <string_view>

namespace velmar::drawing {
namespace {

/// So that however many handles are given, counting on from the highest one of a file, none is 0
/// again.
constexpr Handle highest_handle = 0x0FFF'FFFF'FFFF'FFFF;

/// What each byte is as a hexadecimal digit; 16 for what is none. A table, as handles mix digits
/// and letters in no order that could be foreseen.
constexpr auto hexadecimal_digits = [] {
  std::array<std::uint8_t, 256> digits{};
  digits.fill(16);
  for (std::uint8_t i = 0; i < 10; ++i) digits['0' + i] = i;
  for (std::uint8_t i = 0; i < 6; ++i) {
    digits['A' + i] = digits['a' + i] = static_cast<std::uint8_t>(10 + i);
  }
  return digits;
}();

}  // namespace

std::string handle_text(Handle handle) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  char text[2 * sizeof handle];
  char* const end = std::end(text);
  char* begin = end;
  do {
    *--begin = digits[handle & 15];
    handle >>= 4;
  } while (handle != 0);
  return {begin, end};
}

Handle parse_handle(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  Handle handle = 0;
  for (const char c : text) {
    const unsigned digit = hexadecimal_digits[static_cast<unsigned char>(c)];
    if (digit > 15 || handle > highest_handle >> 4) return 0;
    handle = handle << 4 | digit;
  }
  return handle;
}

}  // namespace velmar::drawing
