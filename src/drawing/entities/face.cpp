#include "drawing/entities/face.h"

namespace velmar::drawing {

Box extents(const Face& face) {
  Box box;
  for (const Point& corner : face.corners) box.add(corner);
  return box;
}

void transform(Face& face, const Matrix& matrix) {
  for (Point& corner : face.corners) corner = matrix(corner);
}

std::vector<Point> outline(const Face& face) {
  std::vector<Point> points(face.corners.begin(), face.corners.end());
  points.push_back(points.front());
  return points;
}

}  // namespace velmar::drawing
