#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "drawing/entities/field.h"
#include "drawing/geometry/plane_map.h"
#include "drawing/geometry/point.h"

namespace velmar::drawing {

/// A family of parallel lines of a hatch, in the plane of the hatch: the first goes through `base`,
/// each next one is moved by `offset`. Dashes: above 0 drawn, below 0 left out, 0 a dot; none: a
/// line without gaps. (DXF reference, "Pattern data"; here as drawn: scaled and turned.)
struct PatternLine {
  double angle = 0;  // radians
  Point base, offset;
  std::vector<double> dashes;
};

template <class Row>
void tags(Row& row, PatternLine& line) {
  row(53, degrees(line.angle));
  row(43, line.base.x);
  row(44, line.base.y);
  row(45, line.offset.x);
  row(46, line.offset.y);
  row.count(79, line.dashes);
  for (double& dash : line.dashes) row(49, dash);
}

void transform(PatternLine& line, const PlaneMap& plane);

/// One or, crossed, two families at a distance. Such patterns have no name of their own.
std::vector<PatternLine> user_pattern(double angle, double spacing, bool crossed);

enum class PatternUnits { inches, millimetres };
/// A standard pattern, by its name in any letter case; nothing for a name that is none. SOLID has
/// no lines.
std::optional<std::vector<PatternLine>> standard_pattern(std::string_view name, PatternUnits units,
                                                         double scale, double angle);

}  // namespace velmar::drawing
