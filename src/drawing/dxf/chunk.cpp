#include "drawing/dxf/chunk.h"

#include <charconv>

namespace velmar::drawing::dxf {

std::string hexadecimal_text(std::string_view data) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string text;
  for (const char c : data) {
    text += digits[static_cast<unsigned char>(c) >> 4];
    text += digits[static_cast<unsigned char>(c) & 15];
  }
  return text;
}

std::string hexadecimal_data(std::string_view text) {
  constexpr int sixteen = 16;
  std::string data;
  for (std::size_t at = 0; at + 2 <= text.size(); at += 2) {
    unsigned char byte = 0;
    const char* const end = text.data() + at + 2;
    if (std::from_chars(text.data() + at, end, byte, sixteen).ptr != end) break;
    data += static_cast<char>(byte);
  }
  return data;
}

std::string chunk_value(std::string_view bytes, const Tag& tag, const Format& format) {
  const std::string_view raw = tag.text(bytes);
  return format.binary ? std::string(raw) : hexadecimal_data(raw);
}

}  // namespace velmar::drawing::dxf
