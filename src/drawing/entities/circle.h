#pragma once

#include <vector>

#include "drawing/entities/field.h"
#include "drawing/geometry/box.h"
#include "drawing/geometry/matrix.h"

namespace velmar::drawing {

/// CIRCLE. The centre is in the object coordinate system (OCS) of the normal.
struct Circle {
  Point center;
  double radius = 1;
  double thickness = 0;
  Point normal = z_axis;
};

template <class Fields>
void fields(Fields& field, Circle& circle) {
  field.subclass("AcDbCircle");
  field("Thickness", 39, circle.thickness, unless{0.0});
  field("Center", 10, ocs(circle.center));
  field("Radius", 40, circle.radius);
  field("Normal", 210, circle.normal, unless{z_axis});
}

double length(const Circle& circle);
double area(const Circle& circle);
Box extents(const Circle& circle);
void transform(Circle& circle, const Matrix& matrix);
std::vector<Point> outline(const Circle& circle);

}  // namespace velmar::drawing
