#pragma once

#include <cstdint>
#include <vector>

#include "drawing/geometry/point.h"

namespace velmar::render {

using drawing::Point;
/// Points one after the other; in a picture their z means nothing.
using Chain = std::vector<Point>;

struct Color {
  std::uint8_t red = 0, green = 0, blue = 0;
  friend bool operator==(const Color&, const Color&) = default;
};

struct Ink {
  Color color = {};
  double opacity = 1;
};

/// Where chains around areas overlap: an even number of times is left out, or all is filled that
/// they go around in one direction.
enum class Rule { even_odd, nonzero };

/// What a picture is made of, in picture units (pixels, or points of 1/72 inch) from its upper left
/// corner, y downwards. Ends and corners of lines are round; a line of one point is a dot.
class Painter {
 public:
  virtual ~Painter() = default;
  virtual void stroke(const Chain& chain, const Ink& ink, double width) = 0;
  /// Chains that need not be closed.
  virtual void fill(const std::vector<Chain>& areas, const Ink& ink, Rule rule) = 0;
  /// What follows is seen within this area only, until the clip is taken away again.
  virtual void push_clip(const std::vector<Chain>& areas) = 0;
  virtual void pop_clip() = 0;
};

}  // namespace velmar::render
