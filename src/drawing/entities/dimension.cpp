#include "drawing/entities/dimension.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>

#include "drawing/geometry/angle.h"
#include "drawing/geometry/ocs.h"
#include "drawing/geometry/plane_map.h"

namespace velmar::drawing {
namespace {

Point direction(double angle) { return {std::cos(angle), std::sin(angle), 0}; }

/// Where two lines in the plane cross, each through two points; nothing for parallel ones.
std::optional<Point> crossing(Point a, Point b, Point c, Point d) {
  const Point along = b - a, other = d - c;
  const double slope = along.x * other.y - along.y * other.x;
  if (std::abs(slope) <= 1e-12 * norm(along) * norm(other)) return {};
  const Point way = c - a;
  return a + along * ((way.x * other.y - way.y * other.x) / slope);
}

/// The sector between the rays from `vertex` in which `inside` lies.
double sector(Point vertex, Point first, Point second, Point inside) {
  const double start = angle_of(first - vertex), end = angle_of(second - vertex);
  const double sweep = wrapped(end - start);
  return wrapped(angle_of(inside - vertex) - start) <= sweep ? sweep : full_turn - sweep;
}

/// Of the four sectors between two lines the one in which the arc stands.
double angle_between_lines(const Dimension& dimension, const Matrix& to_ocs) {
  const Point a = to_ocs(dimension.first), b = to_ocs(dimension.second),
              c = to_ocs(dimension.third), d = to_ocs(dimension.definition);
  const auto vertex = crossing(a, b, c, d);
  if (!vertex) return 0;
  const Point first = b - a, second = d - c;
  const double turn = std::abs(angle_of(second) - angle_of(first));
  const double sharp = std::min(wrapped(turn), full_turn - wrapped(turn));
  const Point to_arc = dimension.arc_point - *vertex;
  const double by_first = dot(to_arc, {-first.y, first.x, 0}) * dot(second, {-first.y, first.x, 0});
  const double by_second =
      dot(to_arc, {-second.y, second.x, 0}) * dot(first, {-second.y, second.x, 0});
  const bool between = (by_first >= 0) == (by_second >= 0);
  return between ? sharp : std::numbers::pi - sharp;
}

}  // namespace

double line_angle(const Dimension& dimension) {
  if (dimension.type() == Dimension::rotated) return dimension.rotation;
  const Matrix to_ocs = world_to_ocs(dimension.normal);
  const Point way = to_ocs.direction(dimension.second - dimension.first);
  return way.x == 0 && way.y == 0 ? 0 : angle_of(way);
}

double measurement(const Dimension& dimension) {
  const Matrix to_ocs = world_to_ocs(dimension.normal);
  const Point way = to_ocs.direction(dimension.second - dimension.first);
  switch (dimension.type()) {
    case Dimension::rotated:
      return std::abs(dot(way, direction(dimension.rotation)));
    case Dimension::aligned:
      return std::hypot(way.x, way.y);
    case Dimension::diameter:
    case Dimension::radius:
      return norm(dimension.third - dimension.definition);
    case Dimension::angular_2_line:
      return angle_between_lines(dimension, to_ocs);
    case Dimension::angular_3_point:
      return sector(to_ocs(dimension.third), to_ocs(dimension.first), to_ocs(dimension.second),
                    to_ocs(dimension.definition));
    case Dimension::ordinate:
      break;
  }
  const Point from_origin = to_ocs.direction(dimension.first - dimension.definition);
  const bool of_x = (dimension.flags & Dimension::ordinate_x_flag) != 0;
  const double turn = -dimension.horizontal_direction;
  return std::abs(dot(from_origin, direction(of_x ? turn : turn + std::numbers::pi / 2)));
}

void transform(Dimension& dimension, const Matrix& matrix) {
  const PlaneMap plane = plane_map(matrix, dimension.normal);
  for (Point* point :
       {&dimension.definition, &dimension.first, &dimension.second, &dimension.third}) {
    *point = matrix(*point);
  }
  dimension.text_position = plane.map(dimension.text_position);
  dimension.arc_point = plane.map(dimension.arc_point);
  dimension.rotation = plane.angle(dimension.rotation);
  if (dimension.text_rotation != 0) dimension.text_rotation = plane.angle(dimension.text_rotation);
  if (dimension.type() == Dimension::ordinate) {  // its axes turn with it
    dimension.horizontal_direction = -plane.angle(-dimension.horizontal_direction);
  }
  if (plane.mirrored) dimension.oblique = -dimension.oblique;
  dimension.leader_length *= plane.stretch;
  dimension.normal = plane.normal;
}

}  // namespace velmar::drawing
