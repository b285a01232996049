#include "drawing/dimension/sector.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "drawing/dimension/layout_rules.h"
#include "drawing/geometry/angle.h"
#include "drawing/geometry/ocs.h"

namespace velmar::drawing {
namespace {

/// A straight line of the angle, as it stands in the drawing.
struct Side {
  Point from, to;
  Point way() const { return to - from; }
};

double turning(Point a, Point b) { return a.x * b.y - a.y * b.x; }

std::optional<Point> crossing(const Side& a, const Side& b) {
  const double slope = turning(a.way(), b.way());
  if (std::abs(slope) <= 1e-12 * norm(a.way()) * norm(b.way())) return std::nullopt;
  return a.from + a.way() * (turning(b.from - a.from, b.way()) / slope);
}

Reach reach(const Side& side, Point vertex, Point ray) {
  const double a = dot(side.from - vertex, ray), b = dot(side.to - vertex, ray);
  return {std::min(a, b), std::max(a, b)};
}

/// Between the rays of the two lines between which the arc stands.
Sector between(const Side& first, const Side& second, Point arc_point) {
  const auto vertex = crossing(first, second);
  if (!vertex) return {};
  const Point to_arc = arc_point - *vertex;
  const double slope = turning(first.way(), second.way());
  // to_arc as so much of the one and so much of the other.
  const double of_first = turning(to_arc, second.way()) / slope,
               of_second = turning(first.way(), to_arc) / slope;
  const auto ray_of = [](const Side& side, double sign) {
    return side.way() * ((sign < 0 ? -1 : 1) / norm(side.way()));
  };
  const Point one = ray_of(first, of_first), other = ray_of(second, of_second);
  const bool in_order = turning(one, other) > 0;
  Sector sector;
  sector.vertex = *vertex;
  sector.radius = std::hypot(to_arc.x, to_arc.y);
  sector.start = angle_of(in_order ? one : other);
  sector.sweep = wrapped(angle_of(in_order ? other : one) - sector.start);
  sector.first = in_order ? reach(first, *vertex, one) : reach(second, *vertex, other);
  sector.second = in_order ? reach(second, *vertex, other) : reach(first, *vertex, one);
  return sector;
}

/// From the vertex through two points, on the side where the arc stands.
Sector about(Point vertex, Point first, Point second, Point arc_point) {
  const double start = angle_of(first - vertex), end = angle_of(second - vertex);
  const double sweep = wrapped(end - start);
  const auto at = [&](Point point) {
    const double distance = std::hypot(point.x - vertex.x, point.y - vertex.y);
    return Reach{distance, distance};
  };
  const double radius = at(arc_point).far;
  if (wrapped(angle_of(arc_point - vertex) - start) <= sweep) {
    return {vertex, radius, start, sweep, at(first), at(second)};
  }
  return {vertex, radius, end, full_turn - sweep, at(second), at(first)};
}

}  // namespace

Sector sector_of(const Dimension& dimension) {
  const Matrix to_ocs = world_to_ocs(dimension.normal);
  const Point first = to_ocs(dimension.first), second = to_ocs(dimension.second),
              third = to_ocs(dimension.third), definition = to_ocs(dimension.definition);
  if (dimension.type() == Dimension::angular_3_point) {
    return about(third, first, second, definition);
  }
  return between({first, second}, {third, definition}, dimension.arc_point);
}

}  // namespace velmar::drawing
