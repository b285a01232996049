#pragma once

#include <string>
#include <vector>

#include "drawing/entities/field.h"
#include "drawing/entities/text_layout.h"
#include "drawing/entities/text_look.h"
#include "drawing/geometry/box.h"
#include "drawing/geometry/matrix.h"

namespace velmar::drawing {

/// TOLERANCE: frames with the symbols of geometric tolerances. Its points are in world coordinates;
/// the insertion point is the middle of the left side of the uppermost frame. In the text `%%v`
/// stands between cells and a line feed between frames; `{\Fgdt;j}` is the symbol j.
struct Tolerance {
  Point insertion;
  Point direction = x_axis;
  std::string text;
  std::string style = "Standard";  // of dimensions
  Point normal = z_axis;

  // From the dimension style, or extended data of the entity; the drawing sets them in what it
  // reads, and writes what differs as extended data.
  double text_height = 0.18;
  double gap = 0.09;  // between the text and its frame
  double scale = 1;   // of both
  TextLook look = {};
};

template <class Fields>
void fields(Fields& field, Tolerance& tolerance) {
  field.subclass("AcDbFcf");
  field("", 3, tolerance.style);
  field("InsertionPoint", 10, tolerance.insertion);
  field("TextString", 1, tolerance.text);
  field("Normal", 210, tolerance.normal, unless{z_axis});
  field("DirectionVector", 11, tolerance.direction, unless{x_axis});
}

TextLayout layout(const Tolerance& tolerance);
std::vector<Point> outline(const Tolerance& tolerance);
Box extents(const Tolerance& tolerance);
void transform(Tolerance& tolerance, const Matrix& matrix);

}  // namespace velmar::drawing
