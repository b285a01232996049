#include "render/window.h"

#include <cmath>

namespace velmar::render {

Window window_of(const Chain& chain) {
  Window window;
  for (const Point& p : chain) window.add(p);
  return window;
}

Window common(const Window& a, const Window& b) {
  return {std::max(a.left, b.left), std::max(a.low, b.low), std::min(a.right, b.right),
          std::min(a.high, b.high)};
}

std::optional<std::pair<double, double>> inside(const Window& window, Point a, Point b) {
  double from = 0, to = 1;
  const auto cut = [&](double start, double way, double low, double high) {
    if (way == 0) return start >= low && start <= high;
    double t0 = (low - start) / way, t1 = (high - start) / way;
    if (t0 > t1) std::swap(t0, t1);
    from = std::max(from, t0);
    to = std::min(to, t1);
    return from <= to;
  };
  const Point way = b - a;
  if (!std::isfinite(way.x) || !std::isfinite(way.y)) return std::nullopt;
  if (!cut(a.x, way.x, window.left, window.right)) return std::nullopt;
  if (!cut(a.y, way.y, window.low, window.high)) return std::nullopt;
  return std::pair(from, to);
}

namespace {

/// What lies on the inner side of a line: where `depth` is not below 0.
template <class Depth>
Chain cut_side(const Chain& area, Depth depth) {
  Chain kept;
  for (std::size_t i = 0; i < area.size(); ++i) {
    const Point &a = area[i == 0 ? area.size() - 1 : i - 1], &b = area[i];
    const double da = depth(a), db = depth(b);
    if ((da < 0) != (db < 0)) kept.push_back(a + (b - a) * (da / (da - db)));
    if (db >= 0) kept.push_back(b);
  }
  return kept;
}

}  // namespace

// I. Sutherland, G. Hodgman: Reentrant polygon clipping, 1974.
Chain cut_area(const Window& window, const Chain& area) {
  Chain cut = cut_side(area, [&](Point p) { return p.x - window.left; });
  cut = cut_side(cut, [&](Point p) { return window.right - p.x; });
  cut = cut_side(cut, [&](Point p) { return p.y - window.low; });
  return cut_side(cut, [&](Point p) { return window.high - p.y; });
}

}  // namespace velmar::render
