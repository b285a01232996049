#include "drawing/geometry/stroke_font.h"

#include <algorithm>
#include <iterator>

namespace velmar::drawing {

namespace {

constexpr double capital = 21;

struct Measures {
  std::int8_t advance, gap, top, bottom;
};

// clang-format off
/// From the blank (32) to the tilde (126).
constexpr Measures ascii[] = {
    // blank ! " # $ % & ' ( ) * + , - . /
    {16, 16, 0, 0},   {10, 4, 21, 0},   {16, 4, 21, 0},   {21, 3, 25, 7},   {20, 3, 25, 4},   {24, 3, 21, 0},
    {26, 3, 21, 0},   {10, 4, 21, 0},   {14, 3, 25, 7},   {14, 4, 25, 7},   {16, 3, 15, 0},   {26, 4, 18, 0},
    {10, 4, 2, 4},    {26, 4, 9, 0},    {10, 4, 2, 0},    {22, 2, 25, 7},
    // 0 1 2 3 4 5 6 7 8 9
    {20, 3, 21, 0},   {20, 9, 21, 0},   {20, 3, 21, 0},   {20, 3, 21, 0},   {20, 2, 21, 0},   {20, 3, 21, 0},
    {20, 3, 21, 0},   {20, 3, 21, 0},   {20, 3, 21, 0},   {20, 4, 21, 0},
    // : ; < = > ? @
    {10, 4, 14, 0},   {10, 4, 14, 4},   {24, 4, 18, 0},   {26, 4, 12, 0},   {24, 4, 18, 0},   {18, 3, 21, 0},
    {27, 3, 21, 0},
    // A B C D E F G H I J K L M N O P Q R S T U V W X Y Z
    {18, 1, 21, 0},   {21, 3, 21, 0},   {21, 3, 21, 0},   {21, 3, 21, 0},   {19, 2, 21, 0},   {18, 1, 21, 0},
    {21, 3, 21, 0},   {22, 4, 21, 0},   {8, 4, 21, 0},    {16, 4, 21, 0},   {21, 3, 21, 0},   {17, 1, 21, 0},
    {24, 4, 21, 0},   {22, 4, 21, 0},   {22, 3, 21, 0},   {21, 3, 21, 0},   {22, 3, 21, 2},   {21, 3, 21, 0},
    {20, 3, 21, 0},   {16, 1, 21, 0},   {22, 4, 21, 0},   {18, 1, 21, 0},   {24, 2, 21, 0},   {20, 3, 21, 0},
    {18, 1, 21, 0},   {20, 3, 21, 0},
    // [ \ ] ^ _ `
    {14, 3, 25, 7},   {14, 0, 21, 3},   {14, 4, 25, 7},   {16, 0, 23, 0},   {16, 0, 0, 2},    {10, 4, 21, 0},
    // a b c d e f g h i j k l m n o p q r s t u v w x y z
    {19, 4, 14, 0},   {19, 3, 21, 0},   {18, 3, 14, 0},   {19, 4, 21, 0},   {18, 3, 14, 0},   {12, 2, 21, 0},
    {19, 4, 14, 7},   {19, 4, 21, 0},   {8, 3, 22, 0},    {10, 3, 22, 7},   {17, 2, 21, 0},   {8, 4, 21, 0},
    {30, 4, 14, 0},   {19, 4, 14, 0},   {19, 3, 14, 0},   {19, 3, 14, 7},   {19, 4, 14, 7},   {13, 1, 14, 0},
    {17, 3, 14, 0},   {12, 2, 21, 0},   {19, 4, 14, 0},   {16, 2, 14, 0},   {22, 3, 14, 0},   {17, 3, 14, 0},
    {16, 2, 14, 7},   {17, 3, 14, 0},
    // { | } ~
    {14, 5, 25, 7},   {8, 4, 25, 7},    {14, 4, 25, 7},   {24, 3, 12, 0},
};
// clang-format on
static_assert(std::size(ascii) == 127 - 32);

constexpr Measures degree{14, 4, 21, 0}, plus_minus{26, 4, 21, 0}, any_letter{20, 3, 21, 0},
    square{34, 2, 21, 2}, nothing{0, 0, 0, 0};

struct Range {
  char32_t first, last;
};

/// Blocks of the Unicode standard whose characters are drawn on a square.
constexpr Range wide[] = {{0x1100, 0x115F}, {0x2E80, 0xA4CF},   {0xAC00, 0xD7A3},
                          {0xF900, 0xFAFF}, {0xFE30, 0xFE4F},   {0xFF00, 0xFF60},
                          {0xFFE0, 0xFFE6}, {0x1F300, 0x1FAFF}, {0x20000, 0x3FFFD}};
constexpr Range combining[] = {
    {0x300, 0x36F}, {0x1AB0, 0x1AFF}, {0x20D0, 0x20FF}, {0xFE00, 0xFE0F}, {0x200B, 0x200F}};

template <std::size_t N>
bool in(const Range (&ranges)[N], char32_t c) {
  return std::any_of(std::begin(ranges), std::end(ranges),
                     [&](Range range) { return range.first <= c && c <= range.last; });
}

Measures measures(char32_t c) {
  if (is_blank(c)) return in(wide, c) ? Measures{34, 34, 0, 0} : ascii[0];
  if (c > 32 && c < 127) return ascii[c - 32];
  if (c < 0xA0 || in(combining, c)) return nothing;
  if (c == 0xB0) return degree;
  if (c == 0xB1) return plus_minus;
  return in(wide, c) ? square : any_letter;
}

/// How many bytes follow the first one of a character; -1 if none begins so.
int bytes_after(unsigned char first) {
  if (first < 0x80) return 0;
  if (first >= 0xC2 && first < 0xE0) return 1;
  if (first >= 0xE0 && first < 0xF0) return 2;
  return first >= 0xF0 && first < 0xF5 ? 3 : -1;
}

}  // namespace

bool is_blank(char32_t character) {
  return character == U' ' || character == U'\t' || character == 0xA0 || character == 0x3000 ||
         (character >= 0x2000 && character <= 0x200A);
}

Glyph stroke_glyph(char32_t character) {
  const Measures m = measures(character);
  return {m.advance / capital, m.gap / capital, m.top / capital, m.bottom / capital};
}

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

}  // namespace velmar::drawing
