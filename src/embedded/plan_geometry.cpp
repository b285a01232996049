#include "embedded/plan_geometry.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace velmar::embedded {
namespace {

using drawing::Box;
using drawing::Point;

double segment_distance(Point a, Point b, Point p) {
  const double dx = b.x - a.x, dy = b.y - a.y;
  const double squared = dx * dx + dy * dy;
  const double along = squared > 0 ? ((p.x - a.x) * dx + (p.y - a.y) * dy) / squared : 0;
  const double t = std::clamp(along, 0.0, 1.0);
  return std::hypot(p.x - (a.x + t * dx), p.y - (a.y + t * dy));
}

/// Narrows the part [from, to] of a segment to where start + t * step is between low and high.
void clip(double start, double step, double low, double high, double& from, double& to) {
  if (step == 0) {
    if (start < low || start > high) to = -1;
    return;
  }
  const double a = (low - start) / step, b = (high - start) / step;
  from = std::max(from, std::min(a, b));
  to = std::min(to, std::max(a, b));
}

bool segment_touches(Point a, Point b, const Box& box) {
  double from = 0, to = 1;
  clip(a.x, b.x - a.x, box.min.x, box.max.x, from, to);
  clip(a.y, b.y - a.y, box.min.y, box.max.y, from, to);
  return from <= to;
}

/// Above 0 where c is to the left of the way from a to b.
double side(Point a, Point b, Point c) {
  return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

bool segments_cross(Point a, Point b, Point c, Point d) {
  const double of_c = side(a, b, c), of_d = side(a, b, d);
  const double of_a = side(c, d, a), of_b = side(c, d, b);
  if (of_c * of_d < 0 && of_a * of_b < 0) return true;
  const auto on = [](double value, Point from, Point to, Point p) {
    return value == 0 && segment_distance(from, to, p) == 0;
  };
  return on(of_c, a, b, c) || on(of_d, a, b, d) || on(of_a, c, d, a) || on(of_b, c, d, b);
}

}  // namespace

bool cross(const Chain& a, const Chain& b) {
  for (std::size_t i = 0; i < a.size(); ++i) {
    const Point next = a[std::min(i + 1, a.size() - 1)];
    for (std::size_t j = 0; j + 1 < b.size(); ++j) {
      if (segments_cross(a[i], next, b[j], b[j + 1])) return true;
    }
  }
  return false;
}

double plan_distance(const Chain& chain, Point point) {
  double nearest = std::numeric_limits<double>::infinity();
  for (std::size_t i = 0; i < chain.size(); ++i) {
    const Point next = chain[std::min(i + 1, chain.size() - 1)];
    nearest = std::min(nearest, segment_distance(chain[i], next, point));
  }
  return nearest;
}

bool encloses(const Chain& chain, Point point) {
  bool inside = false;
  for (std::size_t i = 0; i < chain.size(); ++i) {
    const Point a = chain[i], b = chain[(i + 1) % chain.size()];
    if ((a.y > point.y) == (b.y > point.y)) continue;
    if (point.x < a.x + (point.y - a.y) / (b.y - a.y) * (b.x - a.x)) inside = !inside;
  }
  return inside;
}

bool touches(const Chain& chain, const Box& box) {
  for (std::size_t i = 0; i < chain.size(); ++i) {
    if (segment_touches(chain[i], chain[std::min(i + 1, chain.size() - 1)], box)) return true;
  }
  return false;
}

bool contains(const Box& box, Point point) {
  return point.x >= box.min.x && point.x <= box.max.x && point.y >= box.min.y &&
         point.y <= box.max.y;
}

bool contains(const Box& outer, const Box& inner) {
  return contains(outer, inner.min) && contains(outer, inner.max);
}

}  // namespace velmar::embedded
