#include "drawing/error.h"

#include <string_view>

namespace velmar::drawing {
namespace {

/// 16 for what is no digit.
unsigned hexadecimal_digit(char c) {
  if (c >= '0' && c <= '9') return static_cast<unsigned>(c - '0');
  const char upper = static_cast<char>(c & ~0x20);
  return upper >= 'A' && upper <= 'F' ? static_cast<unsigned>(upper - 'A' + 10) : 16;
}

}  // namespace

std::string handle_text(Handle handle) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string text;
  int shift = 60;
  while (shift > 0 && ((handle >> shift) & 15) == 0) shift -= 4;
  for (; shift >= 0; shift -= 4) text += digits[(handle >> shift) & 15];
  return text;
}

Handle parse_handle(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  Handle handle = 0;
  for (const char c : text) {
    const unsigned digit = hexadecimal_digit(c);
    if (digit > 15 || (handle >> 60) != 0) return 0;
    handle = handle << 4 | digit;
  }
  return handle;
}

}  // namespace velmar::drawing
