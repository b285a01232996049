#include "drawing/geometry/ocs.h"

#include <algorithm>

namespace velmar::drawing {

Point unit_normal(Point normal) {
  const double largest = std::max({std::abs(normal.x), std::abs(normal.y), std::abs(normal.z)});
  if (!(largest > 0) || !std::isfinite(dot(normal, {1, 1, 1}))) return z_axis;
  if (std::abs(dot(normal, normal) - 1) < 1e-14) return normal;
  const Point scaled{normal.x / largest, normal.y / largest, normal.z / largest};
  const double size = norm(scaled);
  return {scaled.x / size, scaled.y / size, scaled.z / size};
}

Matrix ocs_to_world(Point normal) {
  const Point z = unit_normal(normal);
  constexpr double near_z = 1.0 / 64;
  const bool along_z = std::abs(z.x) < near_z && std::abs(z.y) < near_z;
  const Point x = unit_normal(cross(along_z ? y_axis : z_axis, z));
  return {x, cross(z, x), z, {}};
}

Matrix world_to_ocs(Point normal) {
  const Matrix m = ocs_to_world(normal);
  return {{m.x.x, m.y.x, m.z.x}, {m.x.y, m.y.y, m.z.y}, {m.x.z, m.y.z, m.z.z}, {}};
}

}  // namespace velmar::drawing
