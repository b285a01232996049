#pragma once

#include <algorithm>
#include <limits>
#include <optional>
#include <utility>
#include <vector>

#include "render/painter.h"

namespace velmar::render {

/// A rectangle along the axes, in the plane of a picture or a drawing; empty until it has points.
struct Window {
  double left = std::numeric_limits<double>::infinity(), low = left;
  double right = -left, high = -left;

  bool empty() const { return !(left <= right && low <= high); }
  double width() const { return right - left; }
  double height() const { return high - low; }
  Point middle() const { return {(left + right) / 2, (low + high) / 2, 0}; }
  Chain corners() const { return {{left, low}, {right, low}, {right, high}, {left, high}}; }

  void add(Point p) {
    left = std::min(left, p.x), right = std::max(right, p.x);
    low = std::min(low, p.y), high = std::max(high, p.y);
  }
  bool contains(const Window& w) const {
    return w.left >= left && w.right <= right && w.low >= low && w.high <= high;
  }
  bool meets(const Window& w) const {
    return w.left <= right && w.right >= left && w.low <= high && w.high >= low;
  }
  Window grown(double by) const { return {left - by, low - by, right + by, high + by}; }
};

Window window_of(const Chain& chain);
Window common(const Window& a, const Window& b);

/// Which part of the way from a to b lies within: from 0 to 1.
std::optional<std::pair<double, double>> inside(const Window& window, Point a, Point b);
/// What of an area lies within; parts of it may be joined along the border.
Chain cut_area(const Window& window, const Chain& area);

}  // namespace velmar::render
