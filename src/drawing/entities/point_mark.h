#pragma once

#include <vector>

#include "drawing/entities/field.h"
#include "drawing/geometry/box.h"
#include "drawing/geometry/matrix.h"

namespace velmar::drawing {

/// POINT, drawn as the mark that $PDMODE says. World coordinates.
struct PointMark {
  Point position;
  double thickness = 0;
  Point normal = z_axis;
};

template <class Fields>
void fields(Fields& field, PointMark& mark) {
  field.subclass("AcDbPoint");
  field("Coordinates", 10, mark.position);
  field("Thickness", 39, mark.thickness, unless{0.0});
  field("Normal", 210, mark.normal, unless{z_axis});
}

Box extents(const PointMark& mark);
void transform(PointMark& mark, const Matrix& matrix);
std::vector<Point> outline(const PointMark& mark);

}  // namespace velmar::drawing
