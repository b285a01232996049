#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "drawing/entities/text.h"
#include "drawing/fonts/font.h"
#include "drawing/geometry/box.h"
#include "drawing/geometry/matrix.h"

namespace velmar::drawing {

/// Characters of one font and size on one line, all of them drawn from `origin` on.
struct TextRun {
  std::string text;  // plain, without codes
  FontPointer font;
  Point origin;  // of the first character on the baseline, in the layout's plane
  double height = 1;
  double width_factor = 1;
  double oblique = 0;   // radians
  double tracking = 1;  // of what each character takes
  bool underline = false, overline = false, strike = false;
  std::int32_t color = -1;       // an index; -1: as the entity
  std::int32_t true_color = -1;  // 0xRRGGBB, or -1
};

/// Texts, and lines between them, placed in a plane: what is to be drawn of a text, a multiline
/// text or a tolerance frame. `world` maps the plane to world coordinates; of backward and
/// upside-down texts it is a reflection.
struct TextLayout {
  std::vector<TextRun> runs;
  std::vector<std::pair<Point, Point>> bars;  // of fractions, and of frames
  Matrix world;
};

TextLayout layout(const Text& text);

/// What a run covers in the plane, as the parallelogram (its lower left corner first, then
/// counter-clockwise) that its oblique angle makes of its box; none where nothing is drawn.
std::optional<std::vector<Point>> outline(const TextRun& run);
/// The box of all runs and bars in the plane.
Box plane_extents(const TextLayout& layout);
/// Its corners in the world, counter-clockwise from the lower left one; none if nothing is drawn.
std::vector<Point> outline(const TextLayout& layout);
/// The box of all runs and bars in the world.
Box extents(const TextLayout& layout);

}  // namespace velmar::drawing
