#pragma once

#include <string>

#include "drawing/entities/field.h"
#include "drawing/geometry/matrix.h"

namespace velmar::drawing {

/// What lies somewhere in an arc length dimension (ARC_DIMENSION) or a jogged radius dimension
/// (LARGE_RADIAL_DIMENSION). These are not drawn anew: their blocks are kept, and mapped with them.
/// Angles in radians.
struct KeptDimension {
  bool is_of_arc = true;
  std::string block;    // "*D7"
  Point definition;     // on the dimension arc; the centre of a jogged one
  Point text_position;  // the middle of the text, in the OCS
  Point block_offset;   // in the OCS: where the block's content is drawn
  double measured = 0;
  Point normal = z_axis;
  Point first, second, third;      // ends and centre of an arc; false centre, jog, point on curve
  Point leader_start, leader_end;  // of an arc
  double start_angle = 0, end_angle = 0;  // of an arc, in the OCS
};

template <class Fields>
void fields(Fields& field, KeptDimension& dimension) {
  field.subclass("AcDbDimension");
  field("BlockName", 2, dimension.block, unless{std::string()});
  field("DefinitionPoint", 10, dimension.definition);
  field("TextMiddle", 11, ocs(dimension.text_position));
  field("BlockOffset", 12, ocs(dimension.block_offset), unless{Point{}});
  field("Measured", 42, dimension.measured, unless{0.0});
  field("Normal", 210, dimension.normal, unless{z_axis});
  field.subclass(dimension.is_of_arc ? "AcDbArcDimension" : "AcDbRadialDimensionLarge");
  field("FirstPoint", 13, dimension.first);
  field("SecondPoint", 14, dimension.second);
  field("ThirdPoint", 15, dimension.third);
  if (!dimension.is_of_arc) return;
  field("StartAngle", 40, dimension.start_angle);
  field("EndAngle", 41, dimension.end_angle);
  field("LeaderStart", 16, dimension.leader_start, unless{Point{}});
  field("LeaderEnd", 17, dimension.leader_end, unless{Point{}});
}

/// Whether the map keeps lengths and is no mirror: what was measured, and the text that tells it,
/// stay true.
bool keeps_measures(const Matrix& matrix);
/// Maps points and angles by a map that keeps measures. The content of the block is for the caller.
void transform(KeptDimension& dimension, const Matrix& matrix);

}  // namespace velmar::drawing
