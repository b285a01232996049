#pragma once

#include <vector>

#include "drawing/entities/field.h"
#include "drawing/geometry/box.h"
#include "drawing/geometry/matrix.h"

namespace velmar::drawing {

/// LINE. Both points in world coordinates.
struct Line {
  Point start, end;
  double thickness = 0;
  Point normal = z_axis;
};

template <class Fields>
void fields(Fields& field, Line& line) {
  field.subclass("AcDbLine");
  field("Thickness", 39, line.thickness, unless{0.0});
  field("StartPoint", 10, line.start);
  field("EndPoint", 11, line.end);
  field("Normal", 210, line.normal, unless{z_axis});
}

double length(const Line& line);
Box extents(const Line& line);
void transform(Line& line, const Matrix& matrix);
std::vector<Point> outline(const Line& line);

}  // namespace velmar::drawing
