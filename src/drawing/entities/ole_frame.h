#pragma once

#include <vector>

#include "drawing/entities/field.h"
#include "drawing/geometry/box.h"
#include "drawing/geometry/matrix.h"

namespace velmar::drawing {

/// OLE2FRAME: a document of another program, shown in a frame along the axes.
struct OleFrame {
  Point upper_left, lower_right;
};

template <class Fields>
void fields(Fields& field, OleFrame& frame) {
  field.subclass("AcDbOle2Frame");
  field("UpperLeft", 10, frame.upper_left);
  field("LowerRight", 11, frame.lower_right);
}

Box extents(const OleFrame& frame);
/// Of maps that turn the frame only the effect on its middle.
void transform(OleFrame& frame, const Matrix& matrix);
std::vector<Point> outline(const OleFrame& frame);

}  // namespace velmar::drawing
