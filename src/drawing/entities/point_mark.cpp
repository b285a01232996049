#include "drawing/entities/point_mark.h"

namespace velmar::drawing {

Box extents(const PointMark& mark) {
  Box box;
  box.add(mark.position);
  box.add(mark.position + mark.normal * mark.thickness);
  return box;
}

void transform(PointMark& mark, const Matrix& matrix) {
  mark.position = matrix(mark.position);
  mark.thickness *= stretch(matrix);
  const Point normal = matrix.direction(mark.normal);
  if (const double size = norm(normal); size > 0) mark.normal = normal * (1 / size);
}

std::vector<Point> outline(const PointMark& mark) { return {mark.position}; }

}  // namespace velmar::drawing
