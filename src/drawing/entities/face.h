#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "drawing/entities/field.h"
#include "drawing/geometry/box.h"
#include "drawing/geometry/matrix.h"

namespace velmar::drawing {

/// 3DFACE: three or four corners in world coordinates, in the order of the way round. Of a triangle
/// the fourth is the third.
struct Face {
  std::array<Point, 4> corners;
  std::int32_t invisible_edges = 0;  // 1, 2, 4, 8: the first to the fourth
};

template <class Fields>
void fields(Fields& field, Face& face) {
  field.subclass("AcDbFace");
  field("FirstCorner", 10, face.corners[0]);
  field("SecondCorner", 11, face.corners[1]);
  field("ThirdCorner", 12, face.corners[2]);
  field("FourthCorner", 13, face.corners[3], unless{Point(face.corners[2])});
  field("InvisibleEdges", 70, face.invisible_edges, unless{0});
}

Box extents(const Face& face);
void transform(Face& face, const Matrix& matrix);
std::vector<Point> outline(const Face& face);

}  // namespace velmar::drawing
