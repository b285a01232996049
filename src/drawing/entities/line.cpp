#include "drawing/entities/line.h"

#include "drawing/geometry/plane_map.h"

namespace velmar::drawing {

double length(const Line& line) { return norm(line.end - line.start); }

Box extents(const Line& line) {
  Box box;
  box.add(line.start);
  box.add(line.end);
  return extruded(box, line.normal, line.thickness);
}

void transform(Line& line, const Matrix& matrix) {
  const PlaneMap plane = plane_map(matrix, line.normal);
  line.start = matrix(line.start);
  line.end = matrix(line.end);
  line.thickness *= plane.rise;
  line.normal = plane.normal;
}

std::vector<Point> outline(const Line& line) { return {line.start, line.end}; }

}  // namespace velmar::drawing
