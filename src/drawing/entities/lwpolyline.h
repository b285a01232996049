#pragma once

#include <cstdint>
#include <vector>

#include "drawing/entities/field.h"
#include "drawing/geometry/box.h"
#include "drawing/geometry/bulge.h"
#include "drawing/geometry/matrix.h"

namespace velmar::drawing {

/// LWPOLYLINE. Vertices are in the plane of the object coordinate system (OCS) of the normal, at
/// the elevation.
struct LwPolyline {
  static constexpr std::int32_t closed_flag = 1;

  std::int32_t flags = 0;
  double constant_width = 0;
  double elevation = 0;
  double thickness = 0;
  Point normal = z_axis;
  std::vector<BulgeVertex> vertices;

  bool closed() const { return (flags & closed_flag) != 0; }
};

template <class Fields>
void fields(Fields& field, LwPolyline& polyline) {
  field.subclass("AcDbPolyline");
  field.count(90, polyline.vertices);
  field("Flags", 70, polyline.flags, unless{0});
  field("ConstantWidth", 43, polyline.constant_width, unless{0.0});
  field("Elevation", 38, polyline.elevation, unless{0.0});
  field("Thickness", 39, polyline.thickness, unless{0.0});
  field.vertices(polyline.vertices);
  field("Normal", 210, polyline.normal, unless{z_axis});
}

double length(const LwPolyline& polyline);
/// Never negative; an open polyline is closed by a straight segment.
double area(const LwPolyline& polyline);
/// Includes the widths of the segments.
Box extents(const LwPolyline& polyline);
void transform(LwPolyline& polyline, const Matrix& matrix);
std::vector<Point> outline(const LwPolyline& polyline);

}  // namespace velmar::drawing
