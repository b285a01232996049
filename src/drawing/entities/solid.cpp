#include "drawing/entities/solid.h"

#include "drawing/geometry/ocs.h"
#include "drawing/geometry/plane_map.h"

namespace velmar::drawing {

std::array<Point, 4> world_corners(const Solid& solid) {
  const Matrix world = ocs_to_world(solid.normal);
  std::array<Point, 4> corners = solid.corners;
  for (Point& corner : corners) corner = world(corner);
  return corners;
}

Box extents(const Solid& solid) {
  Box box;
  for (const Point& corner : world_corners(solid)) box.add(corner);
  return extruded(box, solid.normal, solid.thickness);
}

void transform(Solid& solid, const Matrix& matrix) {
  const PlaneMap plane = plane_map(matrix, solid.normal);
  for (Point& corner : solid.corners) corner = plane.map(corner);
  solid.thickness *= plane.rise;
  solid.normal = plane.normal;
}

std::vector<Point> outline(const Solid& solid) {
  const auto c = world_corners(solid);
  return {c[0], c[1], c[3], c[2], c[0]};
}

}  // namespace velmar::drawing
