#pragma once

#include <cstdint>
#include <string>

#include "drawing/entities/field.h"

namespace velmar::drawing {

/// A row of the STYLE table. The family of a TrueType font and its face are extended data of the
/// row. A row with the shape flag holds shapes for linetypes, and no texts.
struct TextStyle {
  static constexpr std::int32_t shape_flag = 1, vertical_flag = 4, xref_flag = 16;

  std::string name;
  std::int32_t flags = 0;
  double height = 0;  // 0: each text has its own
  double width_factor = 1;
  double oblique = 0;           // radians
  std::int32_t generation = 0;  // 2 backward, 4 upside down
  double last_height = 2.5;
  std::string font_file = "txt";
  std::string big_font_file;

  std::string family;
  bool bold = false, italic = false;

  bool is_style() const { return (flags & shape_flag) == 0; }
};

/// Without the family and its face.
template <class Fields>
void fields(Fields& field, TextStyle& style) {
  field.subclass("AcDbTextStyleTableRecord");
  field("Name", 2, style.name);
  field("Flags", 70, style.flags);
  field("Height", 40, style.height);
  field("Width", 41, style.width_factor);
  field("ObliqueAngle", 50, degrees(style.oblique));
  field("TextGenerationFlag", 71, style.generation);
  field("LastHeight", 42, style.last_height);
  field("FontFile", 3, style.font_file);
  field("BigFontFile", 4, style.big_font_file);
}

}  // namespace velmar::drawing
