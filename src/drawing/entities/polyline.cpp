#include "drawing/entities/polyline.h"

#include <algorithm>
#include <cmath>

#include "drawing/geometry/ocs.h"
#include "drawing/geometry/plane_map.h"

namespace velmar::drawing {

namespace {

constexpr std::int32_t mesh_flags = Polyline::mesh_flag | Polyline::polyface_flag;
/// A polyface vertex that is a place has this flag beside the face flag; a face has it not.
constexpr std::int32_t polyface_place_flag = 64;

bool is_mesh(const Polyline& polyline) { return (polyline.flags & mesh_flags) != 0; }

bool is_face(const PolylineVertex& vertex) {
  return (vertex.flags & PolylineVertex::face_flag) != 0 &&
         (vertex.flags & polyface_place_flag) == 0;
}

/// The vertices that are drawn: without the frame of a spline and the faces of a mesh.
std::vector<PolylineVertex> drawn(const Polyline& polyline) {
  const bool spline = (polyline.flags & Polyline::spline_fit_flag) != 0;
  std::vector<PolylineVertex> vertices;
  for (const PolylineVertex& vertex : polyline.vertices) {
    if (spline && (vertex.flags & PolylineVertex::spline_frame_flag) != 0) continue;
    if (!is_face(vertex)) vertices.push_back(vertex);
  }
  return vertices;
}

Matrix to_world(const Polyline& polyline) {
  return ocs_to_world(polyline.normal) * translation({0, 0, polyline.elevation_point.z});
}

/// The vertices of a 3D polyline, the first one again at the end if it is closed.
std::vector<Point> chain(const Polyline& polyline) {
  std::vector<Point> points;
  for (const PolylineVertex& vertex : drawn(polyline)) points.push_back(vertex.position);
  if (polyline.closed() && !is_mesh(polyline) && !points.empty()) points.push_back(points[0]);
  return points;
}

}  // namespace

std::vector<BulgeVertex> curve(const Polyline& polyline) {
  std::vector<BulgeVertex> vertices;
  for (const PolylineVertex& vertex : drawn(polyline)) {
    const bool own = vertex.start_width != 0 || vertex.end_width != 0;
    vertices.push_back({vertex.position.x, vertex.position.y,
                        own ? vertex.start_width : polyline.start_width,
                        own ? vertex.end_width : polyline.end_width, vertex.bulge});
  }
  return vertices;
}

double length(const Polyline& polyline) {
  if (is_mesh(polyline)) return 0;
  if (polyline.is_2d()) return path_length(curve(polyline), polyline.closed());
  const std::vector<Point> points = chain(polyline);
  double length = 0;
  for (std::size_t i = 1; i < points.size(); ++i) length += norm(points[i] - points[i - 1]);
  return length;
}

double area(const Polyline& polyline) {
  if (is_mesh(polyline)) return 0;
  if (polyline.is_2d()) return std::abs(signed_area(curve(polyline), polyline.closed()));
  // Newell: the sum of the triangles' vectors, which for a way that is not planar is the area as
  // seen from where it looks largest.
  const std::vector<Point> points = chain(polyline);
  Point sum;
  for (std::size_t i = 1; i < points.size(); ++i)
    sum = sum + cross(points[i - 1] - points[0], points[i] - points[0]);
  return norm(sum) / 2;
}

Box extents(const Polyline& polyline) {
  if (polyline.is_2d()) {
    const Box box = extents(curve(polyline), polyline.closed(), to_world(polyline));
    return extruded(box, polyline.normal, polyline.thickness);
  }
  Box box;
  for (Point point : chain(polyline)) box.add(point);
  return box;
}

// 2D: as for the lightweight polyline. 3D and meshes: exact for every affine map.
void transform(Polyline& polyline, const Matrix& matrix) {
  const PlaneMap plane = plane_map(matrix, polyline.normal);
  const bool flat = polyline.is_2d();
  for (PolylineVertex& vertex : polyline.vertices) {
    if (!is_face(vertex))
      vertex.position = flat ? plane.map(vertex.position) : matrix(vertex.position);
    vertex.start_width *= plane.stretch;
    vertex.end_width *= plane.stretch;
    if (plane.mirrored) vertex.bulge = -vertex.bulge;
  }
  if (!flat) return;
  polyline.elevation_point.z = plane.map({0, 0, polyline.elevation_point.z}).z;
  polyline.start_width *= plane.stretch;
  polyline.end_width *= plane.stretch;
  polyline.thickness *= plane.rise;
  polyline.normal = plane.normal;
}

std::vector<Point> outline(const Polyline& polyline) {
  if (!polyline.is_2d()) return chain(polyline);
  std::vector<Point> points = flatten(curve(polyline), polyline.closed());
  const Matrix world = to_world(polyline);
  for (Point& point : points) point = world(point);
  return points;
}

}  // namespace velmar::drawing
