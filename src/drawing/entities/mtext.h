#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "drawing/entities/field.h"
#include "drawing/geometry/box.h"
#include "drawing/geometry/matrix.h"

namespace velmar::drawing {

/// MTEXT: paragraphs with formatting codes. Its points are in world coordinates.
struct MText {
  Point insertion;
  double height = 1;
  double width = 0;             // of a line; 0: lines are not broken
  std::int32_t attachment = 1;  // 1 to 3 top left, centre, right; 4 to 6 middle; 7 to 9 bottom
  std::int32_t flow = 1;
  std::string text;
  std::string style = "Standard";
  Point normal = z_axis;
  Point direction = {};  // of the lines; zero where the file gives a rotation, or neither
  double rotation = 0;   // radians, from the x axis of the OCS, where there is no direction
};

template <class Fields>
void fields(Fields& field, MText& text) {
  field.subclass("AcDbMText");
  field("", 10, text.insertion);
  field("", 40, text.height);
  field("", 41, text.width);
  field("", 71, text.attachment);
  field("", 72, text.flow);
  field("", 1, text.text);
  field("", 7, text.style, unless{std::string("Standard")});
  field("", 210, text.normal, unless{z_axis});
  field("", 11, text.direction, unless{Point{}});
  field("", 50, degrees(text.rotation), unless{0.0});
}

std::vector<Point> outline(const MText& text);
Box extents(const MText& text);
void transform(MText& text, const Matrix& matrix);

}  // namespace velmar::drawing
