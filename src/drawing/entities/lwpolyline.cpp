#include "drawing/entities/lwpolyline.h"

#include <algorithm>
#include <cmath>

#include "drawing/geometry/ocs.h"
#include "drawing/geometry/plane_map.h"

namespace velmar::drawing {

namespace {

Matrix to_world(const LwPolyline& polyline) {
  return ocs_to_world(polyline.normal) * translation({0, 0, polyline.elevation});
}

/// The vertices with the widths they are drawn with: the constant width counts only where no
/// vertex has one of its own (DXF reference, group 43).
std::vector<BulgeVertex> with_widths(const LwPolyline& polyline) {
  std::vector<BulgeVertex> vertices = polyline.vertices;
  const bool own = std::any_of(vertices.begin(), vertices.end(), [](const BulgeVertex& vertex) {
    return vertex.start_width != 0 || vertex.end_width != 0;
  });
  if (own) return vertices;
  for (BulgeVertex& vertex : vertices)
    vertex.start_width = vertex.end_width = polyline.constant_width;
  return vertices;
}

}  // namespace

double length(const LwPolyline& polyline) {
  return path_length(polyline.vertices, polyline.closed());
}

double area(const LwPolyline& polyline) {
  return std::abs(signed_area(polyline.vertices, polyline.closed()));
}

Box extents(const LwPolyline& polyline) {
  const Box box = extents(with_widths(polyline), polyline.closed(), to_world(polyline));
  return extruded(box, polyline.normal, polyline.thickness);
}

// A map that would make arcs parts of ellipses keeps their bulges.
void transform(LwPolyline& polyline, const Matrix& matrix) {
  const PlaneMap plane = plane_map(matrix, polyline.normal);
  for (BulgeVertex& vertex : polyline.vertices) {
    const Point place = plane.map({vertex.x, vertex.y, polyline.elevation});
    vertex.x = place.x;
    vertex.y = place.y;
    vertex.start_width *= plane.stretch;
    vertex.end_width *= plane.stretch;
    if (plane.mirrored) vertex.bulge = -vertex.bulge;
  }
  polyline.constant_width *= plane.stretch;
  polyline.elevation = plane.map({0, 0, polyline.elevation}).z;
  polyline.thickness *= plane.rise;
  polyline.normal = plane.normal;
}

std::vector<Point> outline(const LwPolyline& polyline) {
  std::vector<Point> points = flatten(polyline.vertices, polyline.closed());
  const Matrix world = to_world(polyline);
  for (Point& point : points) point = world(point);
  return points;
}

}  // namespace velmar::drawing
