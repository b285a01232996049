#include "drawing/entities/leader.h"

#include "drawing/geometry/ocs.h"
#include "drawing/geometry/plane_map.h"

namespace velmar::drawing {

Box extents(const Leader& leader) {
  Box box;
  for (const Point& vertex : leader.vertices) box.add(vertex);
  return box;
}

void transform(Leader& leader, const Matrix& matrix) {
  for (Point& vertex : leader.vertices) vertex = matrix(vertex);
  leader.normal = plane_map(matrix, leader.normal).normal;
  const Point horizontal = matrix.direction(leader.horizontal);
  if (horizontal != leader.horizontal && norm(horizontal) > 0)
    leader.horizontal = unit_normal(horizontal);
  leader.block_offset = matrix.direction(leader.block_offset);
  leader.annotation_offset = matrix.direction(leader.annotation_offset);
}

std::vector<Point> outline(const Leader& leader) { return leader.vertices; }

}  // namespace velmar::drawing
