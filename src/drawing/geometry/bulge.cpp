#include "drawing/geometry/bulge.h"

#include <cmath>
#include <numbers>

#include "drawing/geometry/conic.h"

namespace velmar::drawing {

namespace {

/// Calls `visit(from, to)` for each segment.
template <class Visit>
void each_segment(std::span<const BulgeVertex> vertices, bool closed, Visit visit) {
  for (std::size_t i = 0; i + 1 < vertices.size(); ++i) visit(vertices[i], vertices[i + 1]);
  if (closed && vertices.size() > 1) visit(vertices.back(), vertices.front());
}

double segment_length(const BulgeVertex& from, const BulgeVertex& to) {
  if (!is_arc(from)) return std::hypot(to.x - from.x, to.y - from.y);
  const BulgeArc arc = arc_of(from, to);
  return arc.radius * std::abs(arc.sweep);
}

}  // namespace

bool is_arc(const BulgeVertex& from) {
  return std::isfinite(from.bulge) && std::abs(from.bulge) > 1e-12;
}

BulgeArc arc_of(const BulgeVertex& from, const BulgeVertex& to) {
  const double b = from.bulge, dx = to.x - from.x, dy = to.y - from.y;
  const double to_center = (1 / b - b) / 4;  // from the middle of the chord, in chords, to the left
  BulgeArc arc;
  arc.center = {(from.x + to.x) / 2 - dy * to_center, (from.y + to.y) / 2 + dx * to_center, 0};
  arc.radius = std::hypot(dx, dy) * (1 / std::abs(b) + std::abs(b)) / 4;
  arc.sweep = 4 * std::atan(b);
  // At the start the way goes half the sweep to the right of the chord; the radius is square to it.
  arc.start_angle =
      std::atan2(dy, dx) - arc.sweep / 2 - std::copysign(std::numbers::pi / 2, arc.sweep);
  return arc;
}

Point point_on(const BulgeVertex& from, const BulgeArc& arc, double turn) {
  const double chord = 2 * arc.radius * std::sin(turn / 2);
  const double middle = arc.start_angle + turn / 2;
  return {from.x - chord * std::sin(middle), from.y + chord * std::cos(middle), 0};
}

double path_length(std::span<const BulgeVertex> vertices, bool closed) {
  double length = 0;
  each_segment(vertices, closed, [&](const BulgeVertex& from, const BulgeVertex& to) {
    length += segment_length(from, to);
  });
  return length;
}

double signed_area(std::span<const BulgeVertex> vertices, bool closed) {
  if (vertices.empty()) return 0;
  // From the first vertex, lest the area of a small shape drown in its distance from the origin.
  const double x0 = vertices[0].x, y0 = vertices[0].y;
  double area = 0;
  each_segment(vertices, closed, [&](const BulgeVertex& from, const BulgeVertex& to) {
    area += ((from.x - x0) * (to.y - y0) - (to.x - x0) * (from.y - y0)) / 2;
    if (!is_arc(from)) return;
    const BulgeArc arc = arc_of(from, to);
    area += segment_area(arc.radius, arc.sweep);
  });
  return area;
}

std::vector<Point> flatten(std::span<const BulgeVertex> vertices, bool closed, double step) {
  std::vector<Point> points;
  points.reserve(vertices.size() + 1);
  if (!vertices.empty()) points.push_back({vertices[0].x, vertices[0].y, 0});
  each_segment(vertices, closed, [&](const BulgeVertex& from, const BulgeVertex& to) {
    if (is_arc(from)) {
      const BulgeArc arc = arc_of(from, to);
      const int chords = chord_count(arc.sweep, step);
      for (int i = 1; i < chords; ++i)
        points.push_back(point_on(from, arc, arc.sweep * i / chords));
    }
    points.push_back({to.x, to.y, 0});
  });
  return points;
}

}  // namespace velmar::drawing
