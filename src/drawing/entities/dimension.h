#pragma once

#include <cstdint>
#include <string>

#include "drawing/entities/field.h"
#include "drawing/geometry/matrix.h"

namespace velmar::drawing {

/// DIMENSION of any kind. Angles in radians. What is drawn is the content of `block`; see
/// dimension/drawn_block.h.
struct Dimension {
  enum Type : std::int32_t {
    rotated,
    aligned,
    angular_2_line,
    diameter,
    radius,
    angular_3_point,
    ordinate
  };
  static constexpr std::int32_t type_bits = 7, own_block_flag = 32, ordinate_x_flag = 64,
                                user_text_flag = 128;

  std::string block;               // "*D7"
  std::string style = "Standard";  //
  Point definition;                // group 10: on the dimension line, or a centre, vertex, origin
  Point text_position;             // the middle of the text, in the OCS
  Point block_offset;              // in the OCS: where the block's content is drawn
  std::int32_t flags = 0;
  std::string text;                 // empty or "<>": the measured one
  std::int32_t attachment = 5;      // of the text: the middle
  double measured = 0;              // what the file says; see measurement()
  double text_rotation = 0;         // 0: as the style says
  double horizontal_direction = 0;  // clockwise from the x axis of the OCS
  Point normal = z_axis;
  Point first, second;  // groups 13 and 14: origins of the extension lines, a feature
  Point third;          // group 15: on a second line, on a curve
  Point arc_point;      // group 16, in the OCS: on the arc of an angle
  double leader_length = 0;
  double oblique = 0;   // from dimension line to extension lines; 0: square
  double rotation = 0;  // of the dimension line of a rotated dimension

  Type type() const {
    const std::int32_t type = flags & type_bits;
    return type > ordinate ? ordinate : static_cast<Type>(type);
  }
  /// With a straight dimension line between two points.
  bool is_linear() const { return type() == rotated || type() == aligned; }
  bool is_angular() const { return type() == angular_2_line || type() == angular_3_point; }
  bool has_user_text_place() const { return (flags & user_text_flag) != 0; }
};

template <class Fields>
void angular_fields(Fields& field, Dimension& dimension) {
  const bool of_lines = dimension.type() == Dimension::angular_2_line;
  field.subclass(of_lines ? "AcDb2LineAngularDimension" : "AcDb3PointAngularDimension");
  field("FirstPoint", 13, dimension.first);
  field("SecondPoint", 14, dimension.second);
  field("ThirdPoint", 15, dimension.third);
  field("ArcPoint", 16, ocs(dimension.arc_point), unless{Point{}});
}

template <class Fields>
void round_fields(Fields& field, Dimension& dimension) {
  const bool whole = dimension.type() == Dimension::diameter;
  field.subclass(whole ? "AcDbDiametricDimension" : "AcDbRadialDimension");
  field("ThirdPoint", 15, dimension.third);
  field("LeaderLength", 40, dimension.leader_length, unless{0.0});
}

template <class Fields>
void linear_fields(Fields& field, Dimension& dimension) {
  field.subclass("AcDbAlignedDimension");
  field("FirstPoint", 13, dimension.first);
  field("SecondPoint", 14, dimension.second);
  field("Oblique", 52, degrees(dimension.oblique), unless{0.0});
  if (dimension.type() == Dimension::aligned) return;
  field("LineRotation", 50, degrees(dimension.rotation), unless{0.0});
  field.subclass("AcDbRotatedDimension");
}

template <class Fields>
void ordinate_fields(Fields& field, Dimension& dimension) {
  field.subclass("AcDbOrdinateDimension");
  field("FirstPoint", 13, dimension.first);
  field("SecondPoint", 14, dimension.second);
}

// Names of fields are not those of the host: its members also depend on style and overrides.
template <class Fields>
void fields(Fields& field, Dimension& dimension) {
  field.subclass("AcDbDimension");
  field("BlockName", 2, dimension.block, unless{std::string()});
  field("DefinitionPoint", 10, dimension.definition);
  field("TextMiddle", 11, ocs(dimension.text_position));
  field("BlockOffset", 12, ocs(dimension.block_offset), unless{Point{}});
  field("TypeFlags", 70, dimension.flags, unless{0});
  field("TextAsWritten", 1, dimension.text, unless{std::string()});
  field("Attachment", 71, dimension.attachment, unless{5});
  field("Measured", 42, dimension.measured, unless{0.0});
  field("TextAngle", 53, degrees(dimension.text_rotation), unless{0.0});
  field("HorizontalDirection", 51, degrees(dimension.horizontal_direction), unless{0.0});
  field("Normal", 210, dimension.normal, unless{z_axis});
  field("Style", 3, dimension.style, unless{std::string("Standard")});
  switch (dimension.type()) {
    case Dimension::rotated:
    case Dimension::aligned:
      return linear_fields(field, dimension);
    case Dimension::angular_2_line:
    case Dimension::angular_3_point:
      return angular_fields(field, dimension);
    case Dimension::diameter:
    case Dimension::radius:
      return round_fields(field, dimension);
    case Dimension::ordinate:
      return ordinate_fields(field, dimension);
  }
}

/// The direction of the dimension line of a linear dimension, in the OCS.
double line_angle(const Dimension& dimension);
/// What is measured, from the points: a length or, of an angular dimension, radians. Without the
/// style's scale of lengths.
double measurement(const Dimension& dimension);
/// Maps the points. The content of the block, and `measured`, are for the caller.
void transform(Dimension& dimension, const Matrix& matrix);

}  // namespace velmar::drawing
