#include "drawing/fonts/tolerance_symbols.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace velmar::drawing {
namespace {

constexpr Point symbol_middle{symbol_width / 2, 10.5, 0};

/// From a start on, in parts of a turn.
std::vector<Point> arc(Point center, double radius, double start = 0, double sweep = 1) {
  constexpr int chords = 24;
  std::vector<Point> points;
  for (int i = 0; i <= chords; ++i) {
    const double angle = 2 * std::numbers::pi * (start + sweep * i / chords);
    points.push_back(center + Point{std::cos(angle), std::sin(angle), 0} * radius);
  }
  return points;
}

/// A letter within a circle.
Strokes circled(char32_t letter) {
  constexpr double size = 0.6;
  Strokes strokes = simplex_strokes(letter);
  double width = 0;
  for (const auto& stroke : strokes) {
    for (const Point& p : stroke) width = std::max(width, p.x);
  }
  for (auto& stroke : strokes) {
    for (Point& p : stroke) p = symbol_middle + (p - Point{width / 2, symbol_middle.y, 0}) * size;
  }
  strokes.push_back(arc(symbol_middle, symbol_middle.y));
  return strokes;
}

Strokes runout(double x) {
  return {{{x, 2}, {x + 12, 19}}, {{x + 6, 17}, {x + 12, 19}, {x + 11, 12}}};
}

Strokes of_form(char32_t character) {
  switch (character) {
    case U'c':
      return {{{4, 3}, {22, 3}, {28, 18}, {10, 18}, {4, 3}}};
    case U'e':
      return {arc(symbol_middle, 9)};
    case U'g':
      return {{{5, 1}, {14, 20}}, {{18, 1}, {27, 20}}, arc(symbol_middle, 6)};
    case U'u':
      return {{{4, 10.5}, {28, 10.5}}};
    case U'd': {
      Strokes closed{arc({16, 5, 0}, 11, 0, 0.5)};
      closed[0].push_back(Point(closed[0].front()));
      return closed;
    }
    case U'k':
      return {arc({16, 5, 0}, 11, 0, 0.5)};
    default:
      return {};
  }
}

Strokes of_place(char32_t character) {
  switch (character) {
    case U'a':
      return {{{28, 2}, {4, 2}, {24, 18}}};
    case U'b':
      return {{{4, 1}, {28, 1}}, {{16, 1}, {16, 20}}};
    case U'f':
      return {{{7, 1}, {16, 20}}, {{16, 1}, {25, 20}}};
    case U'h':
      return runout(10);
    case U't': {
      Strokes both = runout(4);
      for (auto& stroke : runout(16)) both.push_back(stroke);
      both.push_back({{4, 2}, {16, 2}});
      return both;
    }
    case U'i':
      return {{{10, 15}, {22, 15}}, {{4, 10.5}, {28, 10.5}}, {{10, 6}, {22, 6}}};
    case U'j':
      return {{{4, 10.5}, {28, 10.5}}, {{16, 0}, {16, 21}}, arc(symbol_middle, 7)};
    case U'r':
      return {arc(symbol_middle, 9), arc(symbol_middle, 5)};
    default:
      return {};
  }
}

Strokes of_size(char32_t character) {
  switch (character) {
    case U'n':
      return {arc(symbol_middle, 8), {{7, 1}, {25, 20}}};
    case U'o':
      return {{{7, 2}, {25, 2}, {25, 20}, {7, 20}, {7, 2}}};
    case U'v':
      return {{{6, 16}, {6, 4}, {26, 4}, {26, 16}}};
    case U'w':
      return {{{6, 18}, {16, 3}, {26, 18}}};
    case U'x':
      return {{{8, 19}, {24, 19}}, {{16, 19}, {16, 2}}, {{11, 7}, {16, 2}, {21, 7}}};
    case U'y':
      return {{{3, 10.5}, {9, 10.5}, {9, 16}, {27, 10.5}, {9, 5}, {9, 10.5}}};
    case U'z':
      return {{{4, 4}, {28, 4}, {4, 16}, {4, 4}}};
    default:
      return {};
  }
}

}  // namespace

Strokes tolerance_symbol(char32_t character) {
  for (const char32_t letter : {U'l', U'm', U'p', U's'}) {
    if (character == letter) return circled(letter - U'a' + U'A');
  }
  for (const auto& list : {of_form, of_place, of_size}) {
    if (Strokes strokes = list(character); !strokes.empty()) return strokes;
  }
  return {};
}

}  // namespace velmar::drawing
