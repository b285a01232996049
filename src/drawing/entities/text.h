#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "drawing/entities/field.h"
#include "drawing/fonts/font.h"
#include "drawing/geometry/box.h"
#include "drawing/geometry/matrix.h"

namespace velmar::drawing {

/// TEXT, and the text part of ATTRIB and ATTDEF. Points are in the object coordinate system (OCS)
/// of the normal; rotation and oblique angle in radians.
struct Text {
  Point insertion;
  Point alignment_point;  // means something unless the text is left-aligned on its baseline
  double height = 1;
  std::string text;
  double rotation = 0;
  double width_factor = 1;
  double oblique = 0;
  std::string style = "Standard";
  std::int32_t generation = 0;  // 2 backward, 4 upside down
  std::int32_t horizontal = 0;  // 0 left, 1 centre, 2 right, 3 aligned, 4 middle, 5 fit
  std::int32_t vertical = 0;    // 0 baseline, 1 bottom, 2 middle, 3 top
  double thickness = 0;
  Point normal = z_axis;

  FontPointer font = {};  // of its style; the drawing sets it, without one it is a stroke font
};

/// The fields of the first AcDbText subclass.
template <class Fields>
void text_fields(Fields& field, Text& text) {
  field.subclass("AcDbText");
  field("Thickness", 39, text.thickness, unless{0.0});
  field("InsertionPoint", 10, ocs(text.insertion));
  field("Height", 40, text.height);
  field("TextString", 1, text.text);
  field("Rotation", 50, degrees(text.rotation), unless{0.0});
  field("ScaleFactor", 41, text.width_factor, unless{1.0});
  field("ObliqueAngle", 51, degrees(text.oblique), unless{0.0});
  field("StyleName", 7, text.style, unless{std::string("Standard")});
  field("TextGenerationFlag", 71, text.generation, unless{0});
  field("HorizontalAlignment", 72, text.horizontal, unless{0});
  field("TextAlignmentPoint", 11, ocs(text.alignment_point), unless{Point{}});
  field("Normal", 210, text.normal, unless{z_axis});
}

template <class Fields>
void fields(Fields& field, Text& text) {
  text_fields(field, text);
  field.subclass("AcDbText");
  field("VerticalAlignment", 73, text.vertical, unless{0});
}

/// How wide and how tall a text is drawn, in drawing units, before rotation. From the style's font.
struct TextSize {
  double width = 0;            // as justification counts it, trailing blanks left out
  double ascent = 0;           // of what is drawn, above the baseline
  double descent = 0;          // below it, positive
  double left = 0, right = 0;  // of what is drawn, from where the first character begins
  bool drawn = false;          // false for blanks only
};

/// The text as drawn: `%%c`, `%%d`, `%%p`, `%%nnn`, `%%%` resolved, `%%u`, `%%o`, `%%k` taken out.
std::string plain_text(const Text& text);

/// The size as drawn: of an aligned or fitted text, between its two points.
TextSize measure(const Text& text);

/// The lower left corner of the drawn text in the OCS: for justified texts it follows from the
/// alignment point.
Point drawn_origin(const Text& text);
/// Sets `insertion` of a justified text from its alignment point, as the host does. A text aligned
/// or fitted between its two points keeps them; its rotation follows, and its height (aligned) or
/// its width factor (fitted).
void place(Text& text);
/// Corners of the drawn text in world coordinates, counter-clockwise from the lower left one; none
/// if it draws nothing.
std::vector<Point> outline(const Text& text);
Box extents(const Text& text);
void transform(Text& text, const Matrix& matrix);

}  // namespace velmar::drawing
