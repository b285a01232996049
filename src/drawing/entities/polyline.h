#pragma once

#include <cstdint>
#include <vector>

#include "drawing/entities/field.h"
#include "drawing/geometry/box.h"
#include "drawing/geometry/bulge.h"
#include "drawing/geometry/matrix.h"

namespace velmar::drawing {

/// VERTEX of a POLYLINE: in the polyline's OCS (2D) or in world coordinates (3D, meshes).
struct PolylineVertex {
  static constexpr std::int32_t spline_frame_flag = 16;
  static constexpr std::int32_t face_flag = 128;

  Point position;
  double start_width = 0, end_width = 0;
  double bulge = 0;
  std::int32_t flags = 0;
};

template <class Fields>
void fields(Fields& field, PolylineVertex& vertex) {
  field.subclass("AcDbVertex");
  field.any_subclass();  // AcDb2dVertex, AcDb3dPolylineVertex, ...
  field("Position", 10, vertex.position);
  field("StartWidth", 40, vertex.start_width, unless{0.0});
  field("EndWidth", 41, vertex.end_width, unless{0.0});
  field("Bulge", 42, vertex.bulge, unless{0.0});
  field("VertexFlags", 70, vertex.flags, unless{0});
}

/// POLYLINE with its VERTEX records: old 2D polyline, 3D polyline, polygon mesh or polyface mesh.
struct Polyline {
  static constexpr std::int32_t closed_flag = 1, curve_fit_flag = 2, spline_fit_flag = 4,
                                is_3d_flag = 8, mesh_flag = 16, polyface_flag = 64;

  std::int32_t flags = 0;
  Point elevation_point;  // only its z counts: the elevation in the OCS of a 2D polyline
  double thickness = 0;
  double start_width = 0, end_width = 0;  // of vertices that give none
  std::int32_t curve_type = 0;            // 0 none, 5 quadratic, 6 cubic, 8 Bezier
  Point normal = z_axis;
  std::vector<PolylineVertex> vertices;

  bool closed() const { return (flags & closed_flag) != 0; }
  bool is_2d() const { return (flags & (is_3d_flag | mesh_flag | polyface_flag)) == 0; }
};

/// The vertices are records of their own, read and written beside these.
template <class Fields>
void fields(Fields& field, Polyline& polyline) {
  field.any_subclass();  // AcDb2dPolyline, AcDb3dPolyline, AcDbPolygonMesh, AcDbPolyFaceMesh
  field("ElevationPoint", 10, polyline.elevation_point, unless{Point{}});
  field("Thickness", 39, polyline.thickness, unless{0.0});
  field("Flags", 70, polyline.flags, unless{0});
  field("StartWidth", 40, polyline.start_width, unless{0.0});
  field("EndWidth", 41, polyline.end_width, unless{0.0});
  field("Type", 75, polyline.curve_type, unless{0});
  field("Normal", 210, polyline.normal, unless{z_axis});
}

/// The vertices of a 2D polyline that lie on the drawn curve (no spline frame), with bulges.
std::vector<BulgeVertex> curve(const Polyline& polyline);
double length(const Polyline& polyline);
/// Of a 2D polyline as for the lightweight one; of a planar 3D polyline likewise in its plane.
double area(const Polyline& polyline);
Box extents(const Polyline& polyline);
void transform(Polyline& polyline, const Matrix& matrix);
std::vector<Point> outline(const Polyline& polyline);

}  // namespace velmar::drawing
