#include "drawing/error.h"

#include <array>
#include <charconv>

namespace velmar::drawing {

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
  const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), handle, 16);
  return error == std::errc() && stop == text.data() + text.size() ? handle : 0;
}

}  // namespace velmar::drawing
