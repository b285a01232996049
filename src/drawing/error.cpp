#include "drawing/error.h"

#include <iterator>
#include <string_view>

namespace velmar::drawing {
namespace {

/// So that however many handles are given, counting on from the highest one of a file, none is 0
/// again.
constexpr Handle highest_handle = 0x0FFF'FFFF'FFFF'FFFF;

/// 16 for what is no digit.
unsigned hexadecimal_digit(char c) {
  if (c >= '0' && c <= '9') return static_cast<unsigned>(c - '0');
  const char upper = static_cast<char>(c & ~0x20);
  return upper >= 'A' && upper <= 'F' ? static_cast<unsigned>(upper - 'A' + 10) : 16;
}

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
    const unsigned digit = hexadecimal_digit(c);
    if (digit > 15 || handle > highest_handle >> 4) return 0;
    handle = handle << 4 | digit;
  }
  return handle;
}

}  // namespace velmar::drawing
