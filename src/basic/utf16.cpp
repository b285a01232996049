#include "basic/utf16.h"

namespace velmar::basic {
namespace {

constexpr char32_t replacement = 0xFFFD, last_character = 0x10FFFF;

struct Decoded {
  char32_t character = replacement;
  std::size_t length = 1;
};

/// By the first byte; 0 for a byte that begins nothing.
std::size_t length_of_sequence(unsigned char first) {
  if (first < 0x80) return 1;
  if (first >= 0xC2 && first < 0xE0) return 2;
  if (first >= 0xE0 && first < 0xF0) return 3;
  if (first >= 0xF0 && first < 0xF5) return 4;
  return 0;
}

Decoded decode(std::string_view text) {
  constexpr char32_t smallest[] = {0, 0, 0x80, 0x800,
                                   0x10000};  // by length: no longer form is allowed
  const auto first = static_cast<unsigned char>(text.front());
  const std::size_t length = length_of_sequence(first);
  if (length == 1) return {first, 1};
  if (length == 0 || text.size() < length) return {};
  char32_t character = first & (0x7FU >> length);
  for (std::size_t i = 1; i < length; ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    if ((byte & 0xC0U) != 0x80) return {};
    character = character << 6 | (byte & 0x3FU);
  }
  if (character < smallest[length] || character > last_character) return {};
  return {character, length};
}

void append_utf8(std::string& text, char32_t character) {
  const auto put = [&](char32_t byte) { text += static_cast<char>(byte); };
  if (character < 0x80) return put(character);
  if (character < 0x800) {
    put(0xC0 | character >> 6);
  } else {
    if (character < 0x10000) {
      put(0xE0 | character >> 12);
    } else {
      put(0xF0 | character >> 18);
      put(0x80 | (character >> 12 & 0x3F));
    }
    put(0x80 | (character >> 6 & 0x3F));
  }
  put(0x80 | (character & 0x3F));
}

}  // namespace

std::u16string to_utf16(std::string_view text) {
  std::u16string units;
  units.reserve(text.size());
  while (!text.empty()) {
    const Decoded next = decode(text);
    append(units, next.character);
    text.remove_prefix(next.length);
  }
  return units;
}

std::string to_utf8(std::u16string_view text) {
  std::string bytes;
  bytes.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char32_t character = character_at(text, i);
    append_utf8(bytes, character);
    if (character > 0xFFFF) ++i;
  }
  return bytes;
}

char32_t character_at(std::u16string_view text, std::size_t position) {
  const char16_t unit = text[position];
  if (!is_high_surrogate(unit) || position + 1 == text.size()) return unit;
  const char16_t low = text[position + 1];
  if (!is_low_surrogate(low)) return unit;
  return 0x10000 + ((unit - 0xD800U) << 10 | (low - 0xDC00U));
}

void append(std::u16string& text, char32_t character) {
  if (character > 0xFFFF) {
    text += static_cast<char16_t>(0xD7C0 + (character >> 10));
    character = 0xDC00 | (character & 0x3FF);
  }
  text += static_cast<char16_t>(character);
}

}  // namespace velmar::basic
