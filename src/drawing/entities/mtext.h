#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "drawing/entities/field.h"
#include "drawing/entities/text_layout.h"
#include "drawing/entities/text_look.h"
#include "drawing/geometry/box.h"
#include "drawing/geometry/matrix.h"

namespace velmar::drawing {

/// MTEXT: paragraphs with formatting codes. Its points are in world coordinates.
struct MText {
  Point insertion;
  double height = 1;
  double width = 0;             // lines are broken where they would be longer; 0: nowhere
  std::int32_t attachment = 1;  // 1 to 3 top left, centre, right; 4 to 6 middle; 7 to 9 bottom
  std::int32_t flow = 1;        // 1 left to right, 3 top to bottom, 5 as the style says
  std::string text;
  std::string style = "Standard";
  Point normal = z_axis;
  Point direction = {};  // of the lines; zero where the file gives a rotation, or neither
  double rotation = 0;   // radians, from the x axis of the OCS, where there is no direction
  std::int32_t spacing_style = 1;  // 1 at least, 2 exactly
  double spacing_factor = 1;       // of 5/3 of the height

  TextLook look = {};
};

/// Of the lines, a unit vector in the world.
Point direction(const MText& text);

template <class Fields>
void fields(Fields& field, MText& text) {
  field.subclass("AcDbMText");
  field("InsertionPoint", 10, text.insertion);
  field("Height", 40, text.height);
  field("Width", 41, text.width);
  field("AttachmentPoint", 71, text.attachment);
  field("DrawingDirection", 72, text.flow);
  field("TextString", 1, chunked(text.text, 3));
  field("StyleName", 7, text.style, unless{std::string("Standard")});
  field("Normal", 210, text.normal, unless{z_axis});
  field("", 11, text.direction, unless{Point{}});
  field("", 50, degrees(text.rotation), unless{0.0});
  field("LineSpacingStyle", 73, text.spacing_style, unless{1});
  field("LineSpacingFactor", 44, text.spacing_factor, unless{1.0});
  // Since release 2018 what newer programs know stands behind, and there the place once more.
  if (field.embedded_object()) {
    Point along = text.direction == Point{} ? direction(text) : text.direction;
    field("", 10, along);
    field("", 11, text.insertion);
    field("", 40, text.width);
  }
}

void set_direction(MText& text, Point direction);
/// From the x axis of the object coordinate system, radians.
double rotation(const MText& text);
void set_rotation(MText& text, double radians);

/// Attaches the text at another point of its frame: it stays where it is.
void attach(MText& text, std::int32_t attachment);

TextLayout layout(const MText& text);
/// Corners of what is drawn in world coordinates, counter-clockwise from the lower left one; none
/// if it draws nothing.
std::vector<Point> outline(const MText& text);
Box extents(const MText& text);
void transform(MText& text, const Matrix& matrix);

}  // namespace velmar::drawing
