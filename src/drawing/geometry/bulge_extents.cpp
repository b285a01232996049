#include <cmath>
#include <numbers>

#include "drawing/geometry/angle.h"
#include "drawing/geometry/bulge.h"

namespace velmar::drawing {

namespace {

/// One edge of an arc with widths: on it the distance from the arc, outward from its centre, goes
/// evenly from `start` to `end`.
struct ArcEdge {
  const BulgeVertex& from;
  const BulgeArc& arc;
  double start, end;

  double slope() const { return (end - start) / arc.sweep; }
  double outward(double turn) const { return start + slope() * turn; }

  Point operator()(double turn) const {
    const double angle = arc.start_angle + turn;
    return point_on(from, arc, turn) + Point{std::cos(angle), std::sin(angle), 0} * outward(turn);
  }

  /// Where near the given turn the edge is farthest in the direction of that turn. The distance
  /// from the centre is r + outward, so there tan(turn - given) = slope / (r + outward).
  double farthest(double given) const {
    double turn = given;
    if (slope() == 0) return turn;
    for (int i = 0; i < 8; ++i) turn = given + std::atan(slope() / (arc.radius + outward(turn)));
    return turn;
  }
};

void add_farthest(Box& box, const ArcEdge& edge, double given, const Matrix& to_world) {
  const double turn = edge.farthest(given);
  if (turn * edge.arc.sweep > 0 && std::abs(turn) < std::abs(edge.arc.sweep))
    box.add(to_world(edge(turn)));
}

void add_edge(Box& box, const ArcEdge& edge, const Matrix& to_world) {
  const double direction = std::copysign(1.0, edge.arc.sweep);
  for (double Point::*axis : {&Point::x, &Point::y, &Point::z}) {
    const double top = std::atan2(to_world.y.*axis, to_world.x.*axis);
    for (double extreme : {top, top + std::numbers::pi}) {
      const double way = wrapped(direction * (extreme - edge.arc.start_angle));
      add_farthest(box, edge, direction * way, to_world);
      // With growing width the farthest point may lie on the edge though that turn does not.
      if (edge.slope() != 0) add_farthest(box, edge, direction * (way - full_turn), to_world);
    }
  }
}

void add_segment(Box& box, const BulgeVertex& from, const BulgeVertex& to, const Matrix& to_world) {
  const Point start{from.x, from.y, 0}, end{to.x, to.y, 0};
  const double length = norm(end - start);
  if (!(length > 0)) return;
  const double half_start = from.start_width / 2, half_end = from.end_width / 2;
  if (!is_arc(from)) {
    const Point left = Point{start.y - end.y, end.x - start.x, 0} * (1 / length);
    for (double side : {-1.0, 1.0}) {
      box.add(to_world(start + left * (side * half_start)));
      box.add(to_world(end + left * (side * half_end)));
    }
    return;
  }
  const BulgeArc arc = arc_of(from, to);
  const double end_angle = arc.start_angle + arc.sweep;
  for (double side : {-1.0, 1.0}) {
    const ArcEdge edge{from, arc, side * half_start, side * half_end};
    box.add(to_world(edge(0)));
    box.add(to_world(end + Point{std::cos(end_angle), std::sin(end_angle), 0} * edge.end));
    add_edge(box, edge, to_world);
  }
}

}  // namespace

Box extents(std::span<const BulgeVertex> vertices, bool closed, const Matrix& to_world) {
  Box box;
  for (const BulgeVertex& vertex : vertices) box.add(to_world({vertex.x, vertex.y, 0}));
  for (std::size_t i = 0; i + 1 < vertices.size(); ++i)
    add_segment(box, vertices[i], vertices[i + 1], to_world);
  if (closed && vertices.size() > 1) add_segment(box, vertices.back(), vertices.front(), to_world);
  return box;
}

}  // namespace velmar::drawing
