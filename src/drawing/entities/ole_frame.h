#pragma once

#include <string>
#include <vector>

#include "drawing/entities/field.h"
#include "drawing/geometry/box.h"
#include "drawing/geometry/matrix.h"

namespace velmar::drawing {

/// OLE2FRAME: a document of another program, shown in a frame along the axes. Its place stands in
/// the data of the document, which programs read, and once more beside it, for whoever does not
/// know the data. See place().
struct OleFrame {
  Point upper_left, lower_right;  // beside the data
  std::string data;               // its first piece
};

template <class Fields>
void fields(Fields& field, OleFrame& frame) {
  field.subclass("AcDbOle2Frame");
  field("UpperLeft", 10, frame.upper_left);
  field("LowerRight", 11, frame.lower_right);
  field.first_chunk(310, frame.data);
}

struct OlePlace {
  Point upper_left, lower_right;
};
/// What the data says; where they begin in no known way, what stands beside them.
OlePlace place(const OleFrame& frame);

Box extents(const OleFrame& frame);
/// Of maps that turn the frame only the effect on its middle.
void transform(OleFrame& frame, const Matrix& matrix);
std::vector<Point> outline(const OleFrame& frame);

}  // namespace velmar::drawing
