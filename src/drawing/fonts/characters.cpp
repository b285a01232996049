#include "drawing/fonts/characters.h"

#include <algorithm>
#include <iterator>

namespace velmar::drawing {
namespace {

struct Range {
  char32_t first, last;
};

/// Blocks of the Unicode standard.
constexpr Range wide[] = {{0x1100, 0x115F}, {0x2E80, 0xA4CF},   {0xAC00, 0xD7A3},
                          {0xF900, 0xFAFF}, {0xFE30, 0xFE4F},   {0xFF00, 0xFF60},
                          {0xFFE0, 0xFFE6}, {0x1F300, 0x1FAFF}, {0x20000, 0x3FFFD}};
constexpr Range weightless[] = {{0, 0x1F},        {0x7F, 0x9F},     {0x300, 0x36F},
                                {0x1AB0, 0x1AFF}, {0x200B, 0x200F}, {0x20D0, 0x20FF},
                                {0xFE00, 0xFE0F}};

template <std::size_t N>
bool in(const Range (&ranges)[N], char32_t c) {
  return std::any_of(std::begin(ranges), std::end(ranges),
                     [&](Range range) { return range.first <= c && c <= range.last; });
}

/// How many bytes follow the first one of a character; -1 if none begins so.
int bytes_after(unsigned char first) {
  if (first < 0x80) return 0;
  if (first >= 0xC2 && first < 0xE0) return 1;
  if (first >= 0xE0 && first < 0xF0) return 2;
  return first >= 0xF0 && first < 0xF5 ? 3 : -1;
}

}  // namespace

char32_t next_character(std::string_view& text) {
  constexpr char32_t replacement = 0xFFFD;
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const int after = bytes_after(byte(0));
  const std::size_t size = static_cast<std::size_t>(after < 0 ? 0 : after) + 1;
  bool whole = after >= 0 && size <= text.size();
  char32_t character = after <= 0 ? byte(0) : static_cast<char32_t>(byte(0) & (0x3F >> after));
  for (std::size_t i = 1; whole && i < size; ++i) {
    whole = (byte(i) & 0xC0) == 0x80;
    character = (character << 6) | (byte(i) & 0x3F);
  }
  text.remove_prefix(whole ? size : 1);
  return whole ? character : replacement;
}

bool is_blank(char32_t character) {
  return character == U' ' || character == U'\t' || character == 0xA0 || character == 0x3000 ||
         (character >= 0x2000 && character <= 0x200A);
}

bool is_wide(char32_t character) { return in(wide, character); }

bool is_weightless(char32_t character) { return in(weightless, character); }

}  // namespace velmar::drawing
