#include "drawing/fonts/stroke_font.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>

#include "drawing/fonts/characters.h"
#include "drawing/fonts/lower_case.h"
#include "drawing/fonts/stroke_letters.h"
#include "drawing/fonts/tolerance_symbols.h"

namespace velmar::drawing {
namespace {

constexpr double capital_height = 21;

struct Measures {
  double advance, right, top, bottom;
};

// clang-format off
/// From the blank (32) to the tilde (126), on Hershey's grid. A character begins with its leftmost
/// stroke. The blank, T, V, Y and t stand wider than Hershey has them, as drafting programs do.
constexpr std::int8_t simplex_table[][4] = {
    // blank ! " # $ % & ' ( ) * + , - . /
    {19, 0, 0, 0},    {10, 2, 21, 0},   {16, 8, 21, 0},   {21, 15, 25, 7},  {20, 14, 25, 4},  {24, 18, 21, 0},
    {26, 21, 21, 0},  {10, 2, 21, 0},   {14, 7, 25, 7},   {14, 7, 25, 7},   {16, 10, 15, 0},  {26, 18, 18, 0},
    {10, 2, 2, 4},    {26, 18, 9, 0},   {10, 2, 2, 0},    {22, 18, 25, 7},
    // 0 1 2 3 4 5 6 7 8 9
    {20, 14, 21, 0},  {20, 5, 21, 0},   {20, 14, 21, 0},  {20, 14, 21, 0},  {20, 15, 21, 0},  {20, 14, 21, 0},
    {20, 13, 21, 0},  {20, 14, 21, 0},  {20, 14, 21, 0},  {20, 13, 21, 0},
    // : ; < = > ? @
    {10, 2, 14, 0},   {10, 2, 14, 4},   {24, 16, 18, 0},  {26, 18, 12, 0},  {24, 16, 18, 0},  {18, 12, 21, 0},
    {27, 21, 21, 0},
    // A B C D E F G H I J K L M N O P Q R S T U V W X Y Z
    {20, 16, 21, 0},  {21, 13, 21, 0},  {21, 15, 21, 0},  {21, 14, 21, 0},  {19, 13, 21, 0},  {18, 13, 21, 0},
    {21, 15, 21, 0},  {22, 14, 21, 0},  {8, 0, 21, 0},    {16, 10, 21, 0},  {21, 14, 21, 0},  {17, 12, 21, 0},
    {24, 16, 21, 0},  {22, 14, 21, 0},  {22, 16, 21, 0},  {21, 13, 21, 0},  {22, 16, 21, 2},  {21, 14, 21, 0},
    {20, 14, 21, 0},  {18, 14, 21, 0},  {22, 14, 21, 0},  {20, 16, 21, 0},  {24, 20, 21, 0},  {20, 14, 21, 0},
    {20, 16, 21, 0},  {20, 14, 21, 0},
    // [ \ ] ^ _ `
    {14, 7, 25, 7},   {14, 14, 21, 3},  {14, 7, 25, 7},   {16, 12, 23, 0},  {16, 16, 0, 2},   {10, 2, 21, 0},
    // a b c d e f g h i j k l m n o p q r s t u v w x y z
    {19, 12, 14, 0},  {19, 12, 21, 0},  {18, 12, 14, 0},  {19, 12, 21, 0},  {18, 12, 14, 0},  {12, 8, 21, 0},
    {19, 12, 14, 7},  {19, 11, 21, 0},  {8, 2, 22, 0},    {10, 6, 22, 7},   {17, 11, 21, 0},  {8, 0, 21, 0},
    {30, 22, 14, 0},  {19, 11, 14, 0},  {19, 13, 14, 0},  {19, 12, 14, 7},  {19, 12, 14, 7},  {13, 8, 14, 0},
    {17, 11, 14, 0},  {14, 8, 21, 0},   {19, 11, 14, 0},  {16, 12, 14, 0},  {22, 16, 14, 0},  {17, 11, 14, 0},
    {16, 13, 14, 7},  {17, 11, 14, 0},
    // { | } ~
    {14, 5, 25, 7},   {8, 0, 25, 7},    {14, 5, 25, 7},   {24, 18, 12, 0},
};
// clang-format on
static_assert(std::size(simplex_table) == 127 - 32);

constexpr Measures any_letter{20, 14, 21, 0}, square{34, 32, 21, 2}, degree{14, 6, 21, 0},
    plus_minus{26, 18, 21, 0};

/// Without ASCII characters that draw nothing, and blanks.
Measures simplex_measures(char32_t c) {
  if (c > 32 && c < 127) {
    const auto& row = simplex_table[c - 32];
    return {double(row[0]), double(row[1]), double(row[2]), double(row[3])};
  }
  if (c == 0xB0) return degree;
  if (c == 0xB1) return plus_minus;
  if (is_wide(c)) return square;
  if (c < 0xC0 || c > 0xFF) return any_letter;
  Measures letter = simplex_measures(base_letter(c));
  letter.top = capital_height;
  return letter;
}

bool any_of(std::string_view set, char32_t c) {
  return c < 127 && set.find(static_cast<char>(c)) != set.npos;
}

/// A capital is 6 units high and 4 wide, small letters are 4 high, 2 units are between
/// letters.
Measures txt_measures(char32_t c) {
  constexpr double unit = capital_height / 6;
  Measures m = simplex_measures(c);
  if (is_wide(c)) return m;
  m.right = 4 * unit;
  if (any_of("1Iijl()[]{}\"", c)) m.right = 2 * unit;
  if (any_of(".,:;'!|`", c) || c == 0xB0) m.right = unit;
  m.advance = m.right + 2 * unit;
  return m;
}

Measures monotxt_measures(char32_t c) {
  Measures m = txt_measures(c);
  if (!is_wide(c)) m.advance = capital_height;
  return m;
}

Measures iso_measures(char32_t c) {
  constexpr double narrow = 0.85;
  Measures m = simplex_measures(c);
  m.advance *= narrow;
  m.right *= narrow;
  return m;
}

Measures gdt_measures(char32_t c) {
  constexpr Measures symbol{38, symbol_width, 21, 0};
  return c >= U'a' && c <= U'z' ? symbol : simplex_measures(c);
}

struct Letters {
  std::string_view name;
  double blank;
  Measures (*measures)(char32_t);
};
constexpr std::array known{Letters{"txt", capital_height, txt_measures},
                           Letters{"monotxt", capital_height, monotxt_measures},
                           Letters{"isocp", 16, iso_measures},
                           Letters{"isocpeur", 16, iso_measures},
                           Letters{"isocp2", 16, iso_measures},
                           Letters{"isocp3", 16, iso_measures},
                           Letters{"isoct", 16, iso_measures},
                           Letters{"isocteur", 16, iso_measures},
                           Letters{"gdt", simplex_table[0][0], gdt_measures}};
constexpr Letters otherwise{"simplex", simplex_table[0][0], simplex_measures};

class StrokeFont final : public Font {
 public:
  explicit StrokeFont(const Letters& letters) : letters_(letters) {}

  Glyph glyph(char32_t c) const override {
    if (is_blank(c)) {
      const double advance = is_wide(c) ? square.advance : letters_.blank;
      return {advance / capital_height, 0, 0, 0, 0, false};
    }
    if (is_weightless(c)) return {0, 0, 0, 0, 0, false};
    const Measures m = letters_.measures(c);
    return {m.advance / capital_height, 0, m.right / capital_height, m.top / capital_height,
            m.bottom / capital_height};
  }
  /// The simplex letter, drawn as wide as this font has it.
  GlyphShape shape(char32_t c) const override {
    if (is_blank(c) || is_weightless(c)) return {};
    if (letters_.measures == gdt_measures) {
      if (Strokes symbol = tolerance_symbol(c); !symbol.empty()) return scaled(symbol, 1);
    }
    // An accent may be wider than its letter, as measured.
    const Measures measured = letters_.measures(c);
    const double width = extent(simplex_strokes(base_letter(c)), &Point::x);
    Strokes strokes = simplex_strokes(c);
    const double above = std::max(extent(strokes, &Point::y) - measured.top, 0.0);
    const double aside = width > 0 ? 0 : measured.right / 2;
    for (auto& stroke : strokes) {
      for (Point& p : stroke) p = p + Point{aside, -above, 0};
    }
    return scaled(strokes, width > 0 ? measured.right / width : 1);
  }
  double descent() const override { return 7 / capital_height; }
  bool aligns_by_advance() const override { return false; }

 private:
  static double extent(const Strokes& strokes, double Point::*coordinate) {
    double most = 0;
    for (const auto& stroke : strokes) {
      for (const Point& p : stroke) most = std::max(most, p.*coordinate);
    }
    return most;
  }
  static GlyphShape scaled(const Strokes& strokes, double wide) {
    GlyphShape shape{strokes};
    for (auto& stroke : shape.chains) {
      for (Point& p : stroke) p = {p.x * wide / capital_height, p.y / capital_height, 0};
    }
    return shape;
  }

  Letters letters_;
};

}  // namespace

FontPointer stroke_font(std::string_view name) {
  name = name.substr(name.find_last_of("/\\") + 1);
  const std::string wanted = lower_case(name.substr(0, name.find('.')));
  const auto found = std::ranges::find(known, wanted, &Letters::name);
  return std::make_shared<StrokeFont>(found == known.end() ? otherwise : *found);
}

}  // namespace velmar::drawing
