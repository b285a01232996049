#pragma once

#include <algorithm>
#include <limits>

#include "drawing/geometry/point.h"

namespace velmar::drawing {

/// A box parallel to the world axes; empty until something is added.
struct Box {
  Point min{std::numeric_limits<double>::infinity(), std::numeric_limits<double>::infinity(),
            std::numeric_limits<double>::infinity()};
  Point max{-std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity(),
            -std::numeric_limits<double>::infinity()};

  bool empty() const { return !(min.x <= max.x && min.y <= max.y && min.z <= max.z); }

  void add(Point p) {
    min = {std::min(min.x, p.x), std::min(min.y, p.y), std::min(min.z, p.z)};
    max = {std::max(max.x, p.x), std::max(max.y, p.y), std::max(max.z, p.z)};
  }
  void add(const Box& other) {
    if (other.empty()) return;
    add(other.min);
    add(other.max);
  }
};

}  // namespace velmar::drawing
