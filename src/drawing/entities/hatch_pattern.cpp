#include "drawing/entities/hatch_pattern.h"

#include <numbers>

#include "drawing/entities/standard_patterns.h"
#include "drawing/name.h"

namespace velmar::drawing {
namespace {

constexpr double radians_per_degree = std::numbers::pi / 180;

Point turned(Point v, double angle) { return rotation({}, z_axis, angle).direction(v); }

/// The definition gives a line's offset along the line and across it.
PatternLine line_of(const PatternRow& row, double scale, double angle) {
  const double direction = row.angle * radians_per_degree + angle;
  PatternLine line;
  line.angle = direction;
  line.base = turned(Point{row.x, row.y, 0} * scale, angle);
  line.offset = turned(Point{row.along, row.across, 0} * scale, direction);
  for (const double dash : row.dashes()) line.dashes.push_back(dash * scale);
  return line;
}

}  // namespace

void transform(PatternLine& line, const PlaneMap& plane) {
  const double factor = plane.along(line.angle);
  line.angle = plane.angle(line.angle);
  line.base = plane.map(line.base);
  line.offset = plane.map.direction(line.offset);
  line.base.z = line.offset.z = 0;
  for (double& dash : line.dashes) dash *= factor;
}

std::vector<PatternLine> user_pattern(double angle, double spacing, bool crossed) {
  const auto family = [&](double direction) {
    return PatternLine{direction, {}, turned({0, spacing, 0}, direction), {}};
  };
  std::vector<PatternLine> lines{family(angle)};
  if (crossed) lines.push_back(family(angle + std::numbers::pi / 2));
  return lines;
}

std::optional<std::vector<PatternLine>> standard_pattern(std::string_view name, PatternUnits units,
                                                         double scale, double angle) {
  constexpr double millimetres_of_inch = 25.4;
  std::optional<std::vector<PatternLine>> lines;
  if (same_name(name, "SOLID")) return lines.emplace();
  for (const PatternRow& row : standard_pattern_rows()) {
    if (!same_name(row.name, name)) continue;
    if (!lines) lines.emplace();
    const bool in_inches = units == PatternUnits::inches || row.is_metric();
    lines->push_back(line_of(row, in_inches ? scale : scale * millimetres_of_inch, angle));
  }
  return lines;
}

}  // namespace velmar::drawing
