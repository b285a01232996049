#include "drawing/explode.h"

#include <algorithm>

#include "drawing/geometry/angle.h"
#include "drawing/geometry/ocs.h"
#include "drawing/geometry/plane_map.h"

namespace velmar::drawing {
namespace {

using Bodies = std::vector<Body>;

constexpr double tolerance = 1e-9;

/// What the segments of a polyline have in common.
struct Plane {
  double elevation = 0, thickness = 0;
  Point normal = z_axis;
};

Arc arc_between(const BulgeVertex& from, const BulgeVertex& to, const Plane& plane) {
  const BulgeArc turn = arc_of(from, to);
  const double end = turn.start_angle + turn.sweep;
  const bool clockwise = turn.sweep < 0;
  Arc arc;
  arc.center = {turn.center.x, turn.center.y, plane.elevation};
  arc.radius = turn.radius;
  arc.start_angle = wrapped(clockwise ? end : turn.start_angle);
  arc.end_angle = wrapped(clockwise ? turn.start_angle : end);
  arc.thickness = plane.thickness;
  arc.normal = plane.normal;
  return arc;
}

Bodies segments(std::span<const BulgeVertex> vertices, bool closed, const Plane& plane) {
  const Matrix world = ocs_to_world(plane.normal);
  const auto place = [&](const BulgeVertex& v) { return world({v.x, v.y, plane.elevation}); };
  Bodies bodies;
  const std::size_t open_ends = closed ? 0 : 1;
  for (std::size_t i = 0; i + open_ends < vertices.size(); ++i) {
    const BulgeVertex &from = vertices[i], &to = vertices[(i + 1) % vertices.size()];
    if (from.x == to.x && from.y == to.y) continue;
    if (is_arc(from) && std::abs(from.bulge) >= flattest_bulge) {
      bodies.emplace_back(arc_between(from, to, plane));
    } else {
      bodies.emplace_back(Line{place(from), place(to), plane.thickness, plane.normal});
    }
  }
  return bodies;
}

bool keeps_circles(const Matrix& matrix, Point normal) {
  const PlaneMap plane = plane_map(matrix, normal);
  const Point x = plane.map.x, y = plane.map.y;
  const double a = std::hypot(x.x, x.y), b = std::hypot(y.x, y.y);
  return std::abs(a - b) <= tolerance * a && std::abs(x.x * y.x + x.y * y.y) <= tolerance * a * b;
}

template <class Round>
Bodies as_ellipse(const Round& round, double start, double end, const Matrix& matrix) {
  const Matrix world = ocs_to_world(round.normal);
  Ellipse ellipse{.center = world(round.center),
                  .major_axis = world.x * round.radius,
                  .start_parameter = start,
                  .end_parameter = end,
                  .normal = round.normal};
  transform(ellipse, matrix);
  return {ellipse};
}

template <class Shape>
Bodies moved(Shape shape, const Matrix& matrix) {
  transform(shape, matrix);
  return {std::move(shape)};
}

template <class Shape>
Bodies images_of(const Shape& shape, const Matrix& matrix) {
  return moved(shape, matrix);
}

bool only_moves(const Matrix& matrix) {
  return matrix.x == x_axis && matrix.y == y_axis && matrix.z == z_axis;
}

Bodies images_of(const Opaque& opaque, const Matrix& matrix) {
  return only_moves(matrix) && matrix({}) == Point{} ? Bodies{opaque} : Bodies{};
}

Bodies images_of(const Region& region, const Matrix& matrix) {
  return can_transform(region, matrix) ? moved(region, matrix) : Bodies{};
}

/// A frame cannot turn.
Bodies images_of(const OleFrame& frame, const Matrix& matrix) {
  const double size = matrix.x.x;
  const bool is_upright = size > 0 && matrix.x == x_axis * size && matrix.y == y_axis * size;
  return is_upright ? moved(frame, matrix) : Bodies{};
}

Bodies images_of(const Circle& circle, const Matrix& matrix) {
  if (keeps_circles(matrix, circle.normal)) return moved(circle, matrix);
  return as_ellipse(circle, 0, full_turn, matrix);
}

Bodies images_of(const Arc& arc, const Matrix& matrix) {
  if (keeps_circles(matrix, arc.normal)) return moved(arc, matrix);
  return as_ellipse(arc, arc.start_angle, arc.start_angle + total_angle(arc), matrix);
}

template <class Way>
Bodies images_of_way(const Way& polyline, std::span<const BulgeVertex> vertices,
                     const Matrix& matrix) {
  if (std::ranges::none_of(vertices, is_arc) || keeps_circles(matrix, polyline.normal)) {
    return moved(polyline, matrix);
  }
  Bodies bodies;
  for (const Body& segment : explode(polyline)) {
    for (Body& image : images(segment, matrix)) bodies.push_back(std::move(image));
  }
  return bodies;
}

Bodies images_of(const LwPolyline& polyline, const Matrix& matrix) {
  return images_of_way(polyline, polyline.vertices, matrix);
}

Bodies images_of(const Polyline& polyline, const Matrix& matrix) {
  if (!polyline.is_2d()) return moved(polyline, matrix);
  return images_of_way(polyline, curve(polyline), matrix);
}

bool same_place(const Matrix& a, const Matrix& b) {
  const double size = norm(a.x) + norm(a.y) + norm(a.z);
  const auto near = [](Point p, Point q, double scale) {
    return norm(p - q) <= tolerance * (scale + norm(p));
  };
  return near(a.x, b.x, size) && near(a.y, b.y, size) && near(a.z, b.z, size) &&
         near(a({}), b({}), 1);
}

/// A reference has a right angle between its axes; a map that scales unevenly may take it away.
Bodies images_of(const Insert& insert, const Matrix& matrix) {
  Insert image = insert;
  transform(image, matrix);
  const int last = insert.is_array() ? 1 : 0;
  for (int cell = 0; cell <= last; ++cell) {
    const Matrix expected = matrix * placement(insert, {}, cell, cell);
    if (!same_place(expected, placement(image, {}, cell, cell))) return {};
  }
  return {image};
}

}  // namespace

Bodies explode(const LwPolyline& polyline) {
  return segments(polyline.vertices, polyline.closed(),
                  {polyline.elevation, polyline.thickness, polyline.normal});
}

Bodies explode(const Polyline& polyline) {
  if (polyline.is_2d()) {
    return segments(curve(polyline), polyline.closed(),
                    {polyline.elevation_point.z, polyline.thickness, polyline.normal});
  }
  Bodies bodies;
  if ((polyline.flags & (Polyline::mesh_flag | Polyline::polyface_flag)) != 0) return bodies;
  const std::vector<Point> way = outline(polyline);
  for (std::size_t i = 1; i < way.size(); ++i) {
    if (way[i - 1] != way[i]) bodies.emplace_back(Line{way[i - 1], way[i]});
  }
  return bodies;
}

Bodies images(const Body& body, const Matrix& matrix) {
  return std::visit([&](const auto& shape) { return images_of(shape, matrix); }, body);
}

}  // namespace velmar::drawing
