#pragma once

#include <array>
#include <vector>

#include "drawing/entities/field.h"
#include "drawing/geometry/box.h"
#include "drawing/geometry/matrix.h"

namespace velmar::drawing {

/// SOLID: a filled area with three or four corners, given in the order of a zigzag: the way round
/// is first, second, fourth, third. Corners are in the OCS of the normal; of a triangle the fourth
/// is the third.
struct Solid {
  std::array<Point, 4> corners;
  double thickness = 0;
  Point normal = z_axis;
};

/// TRACE: the same, drawn as a broad line.
struct Trace : Solid {};

template <class Fields>
void fields(Fields& field, Solid& solid) {
  field.subclass("AcDbTrace");
  field("FirstCorner", 10, ocs(solid.corners[0]));
  field("SecondCorner", 11, ocs(solid.corners[1]));
  field("ThirdCorner", 12, ocs(solid.corners[2]));
  field("FourthCorner", 13, ocs(solid.corners[3]), unless{Point(solid.corners[2])});
  field("Thickness", 39, solid.thickness, unless{0.0});
  field("Normal", 210, solid.normal, unless{z_axis});
}

/// In world coordinates, in the order of the file.
std::array<Point, 4> world_corners(const Solid& solid);
Box extents(const Solid& solid);
void transform(Solid& solid, const Matrix& matrix);
std::vector<Point> outline(const Solid& solid);

}  // namespace velmar::drawing
