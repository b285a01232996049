#include "drawing/geometry/plane_map.h"

#include "drawing/geometry/angle.h"
#include "drawing/geometry/ocs.h"

namespace velmar::drawing {

namespace {

constexpr double noise = 1e-13;

double clean(double value, double neutral) {
  return std::abs(value - neutral) < noise ? neutral : value;
}

Point clean(Point column, Point neutral) {
  return {clean(column.x, neutral.x), clean(column.y, neutral.y), clean(column.z, neutral.z)};
}

Point image_of_normal(const Matrix& matrix, const Matrix& plane) {
  Point normal = cross(matrix.direction(plane.x), matrix.direction(plane.y));
  if (dot(normal, matrix.direction(plane.z)) < 0) normal = -normal;
  if (norm(normal) == 0) return plane.z;
  normal = unit_normal(normal);
  return norm(normal - plane.z) < 1e-12 ? plane.z : normal;
}

}  // namespace

double PlaneMap::angle(double direction) const {
  if (similar && !mirrored && turn == 0) return direction;
  if (similar) return wrapped(mirrored ? turn - direction : turn + direction);
  const Point image = map.direction({std::cos(direction), std::sin(direction), 0});
  return wrapped(std::atan2(image.y, image.x));
}

double PlaneMap::along(double direction) const {
  if (similar) return stretch;
  const Point image = map.direction({std::cos(direction), std::sin(direction), 0});
  return std::hypot(image.x, image.y);
}

double PlaneMap::across(double direction) const {
  const double factor = along(direction);
  return similar || factor == 0 ? stretch : stretch * stretch / factor;
}

PlaneMap plane_map(const Matrix& matrix, Point normal) {
  const Matrix plane = ocs_to_world(normal);
  PlaneMap result;
  result.normal = image_of_normal(matrix, plane);
  if (result.normal == plane.z) result.normal = normal == Point{} ? plane.z : normal;
  result.map = world_to_ocs(result.normal) * matrix * plane;
  if (matrix.x == x_axis && matrix.y == y_axis && matrix.z == z_axis)
    result.map = {x_axis, y_axis, z_axis, result.map(Point{}), {}};

  const Point x = result.map.x, y = result.map.y;
  const double area = x.x * y.y - x.y * y.x;
  result.mirrored = area < 0;
  const double stretched = std::sqrt(std::abs(area));
  const Point expected = result.mirrored ? Point{x.y, -x.x, 0} : Point{-x.y, x.x, 0};
  result.similar = std::hypot(y.x - expected.x, y.y - expected.y) <= 1e-12 * stretched;
  result.turn = clean(std::atan2(x.y, x.x), 0);
  result.stretch = clean(stretched, 1);
  result.rise = clean(std::max(result.map.z.z, 0.0), 1);
  if (result.similar && result.turn == 0 && result.stretch == 1) {
    result.map.x = clean(x, x_axis);
    result.map.y = clean(y, result.mirrored ? -y_axis : y_axis);
  }
  return result;
}

Box extruded(const Box& box, Point normal, double thickness) {
  if (thickness == 0 || box.empty()) return box;
  const Point offset = unit_normal(normal) * thickness;
  Box whole = box;
  whole.add({box.min + offset, box.max + offset});
  return whole;
}

}  // namespace velmar::drawing
