#pragma once

#include <vector>

#include "drawing/entities/field.h"
#include "drawing/geometry/box.h"
#include "drawing/geometry/matrix.h"

namespace velmar::drawing {

/// ARC, counter-clockwise about the normal from the start to the end angle. The centre and the
/// angles (radians, from the x axis) are in the object coordinate system (OCS) of the normal.
struct Arc {
  Point center;
  double radius = 1;
  double start_angle = 0, end_angle = 0;
  double thickness = 0;
  Point normal = z_axis;
};

template <class Fields>
void fields(Fields& field, Arc& arc) {
  field.subclass("AcDbCircle");
  field("Thickness", 39, arc.thickness, unless{0.0});
  field("Center", 10, ocs(arc.center));
  field("Radius", 40, arc.radius);
  field("Normal", 210, arc.normal, unless{z_axis});
  field.subclass("AcDbArc");
  field("StartAngle", 50, degrees(arc.start_angle));
  field("EndAngle", 51, degrees(arc.end_angle));
}

/// The angle that the arc spans, in (0, 2 pi].
double total_angle(const Arc& arc);
Point start_point(const Arc& arc);  // world coordinates
Point end_point(const Arc& arc);
double length(const Arc& arc);
/// Between the arc and its chord.
double area(const Arc& arc);
Box extents(const Arc& arc);
void transform(Arc& arc, const Matrix& matrix);
std::vector<Point> outline(const Arc& arc);

}  // namespace velmar::drawing
