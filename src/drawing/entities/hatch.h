#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "drawing/entities/hatch_loop.h"
#include "drawing/entities/hatch_pattern.h"

namespace velmar::drawing {

/// HATCH: areas within loops, filled or with a pattern of lines. Loops and lines are in the plane
/// of the OCS of the normal, at the elevation. Colour gradients are kept without being understood.
struct Hatch {
  enum Style : std::int32_t { normal_style = 0, outer_style = 1, ignore_style = 2 };
  enum PatternType : std::int32_t { user_defined = 0, predefined = 1, custom = 2 };
  static constexpr std::string_view user_pattern_name = "_USER";

  Point elevation_point;  // only its z counts
  Point normal = z_axis;
  std::string pattern = "SOLID";
  std::int32_t solid = 1;
  std::int32_t associative = 0;
  std::vector<HatchLoop> loops;
  std::int32_t style = normal_style;
  std::int32_t pattern_type = predefined;
  double angle = 0;          // of the pattern, radians
  double scale = 1;          // of a user-defined pattern the distance of its lines
  std::int32_t crossed = 0;  // of a user-defined pattern
  std::vector<PatternLine> lines;
  double pixel_size = 0;
  std::vector<Point> seeds;
  std::int32_t gradient = 0;
  std::string gradient_name;

  bool is_solid() const { return solid != 0; }
};

/// A seed point of a hatch.
template <class Row>
void tags(Row& row, Point& seed) {
  row.plane(10, seed);
}

template <class Fields>
void fields(Fields& field, Hatch& hatch) {
  field.subclass("AcDbHatch");
  field("ElevationPoint", 10, hatch.elevation_point);
  field("Normal", 210, hatch.normal);
  field("PatternName", 2, hatch.pattern);
  field("SolidFill", 70, hatch.solid);
  field("AssociativeHatch", 71, hatch.associative);
  field.row(91, hatch.loops);
  field("HatchStyle", 75, hatch.style);
  field("PatternType", 76, hatch.pattern_type);
  if (hatch.is_solid()) {
    field.absent({52, 41, 77, 78, 53, 43, 44, 45, 46, 79, 49});
  } else {
    field("PatternAngle", 52, degrees(hatch.angle));
    field("PatternScale", 41, hatch.scale);
    field("PatternDouble", 77, hatch.crossed);
    field.row(78, hatch.lines);
  }
  field("PixelSize", 47, hatch.pixel_size, unless{0.0});
  field.row(98, hatch.seeds);
  field("HatchObjectType", 450, hatch.gradient, unless{0});
  field("GradientName", 470, hatch.gradient_name, unless{std::string()});
}

/// No longer follows the entities that it was made from.
void detach(Hatch& hatch);
/// How deep each loop lies in others: 0 for those that no other one surrounds.
std::vector<int> loop_depths(const Hatch& hatch);
/// Whether the style fills on the inner side of a loop that lies so deep.
bool fills(const Hatch& hatch, int depth);
/// Of what is filled: islands by the style, loops that cross each other counted each by itself.
double area(const Hatch& hatch);
Box extents(const Hatch& hatch);
void transform(Hatch& hatch, const Matrix& matrix);
/// The loops in world coordinates, each a closed chain.
std::vector<std::vector<Point>> outlines(const Hatch& hatch);

}  // namespace velmar::drawing
