#include <array>

#include "basic/conversion.h"
#include "embedded/errors.h"
#include "embedded/properties/checks.h"
#include "embedded/properties/kinds.h"

namespace velmar::embedded {
namespace {

using drawing::Hatch;
using drawing::Matrix;
using drawing::PatternLine;

bool is_user_defined(const Hatch& hatch) {
  return !hatch.is_solid() && hatch.pattern_type == Hatch::user_defined;
}

void draw_user_pattern(Hatch& hatch) {
  const drawing::Point base = hatch.lines.empty() ? drawing::Point{} : hatch.lines.front().base;
  hatch.lines = drawing::user_pattern(hatch.angle, hatch.scale, hatch.crossed != 0);
  for (PatternLine& line : hatch.lines) line.base = base;
}

/// Where the pattern begins, the lines turn and grow about it.
void map_lines(Hatch& hatch, Matrix (*map)(drawing::Point, double), double by) {
  if (hatch.lines.empty()) return;
  const drawing::Point origin = hatch.lines.front().base;
  const auto plane = drawing::plane_map(map(origin, by), drawing::z_axis);
  for (PatternLine& line : hatch.lines) transform(line, plane);
}

Matrix turn(drawing::Point base, double angle) {
  return drawing::rotation(base, drawing::z_axis, angle);
}

void put_angle(Hatch& hatch, const Value& value) {
  const double angle = to_number(value);
  const double by = angle - hatch.angle;
  hatch.angle = angle;
  if (is_user_defined(hatch)) return draw_user_pattern(hatch);
  if (by != 0) map_lines(hatch, turn, by);
}

double above_zero(const Value& value) {
  const double number = to_number(value);
  if (!(number > 0)) throw failure(HostError::invalid_input);
  return number;
}

void put_scale(Hatch& hatch, const Value& value) {
  const double scale = above_zero(value);
  if (is_user_defined(hatch)) throw failure(HostError::invalid_input);
  if (hatch.scale > 0 && scale != hatch.scale) {
    map_lines(hatch, drawing::scaling, scale / hatch.scale);
  }
  hatch.scale = scale;
}

void put_space(Hatch& hatch, const Value& value) {
  const double space = above_zero(value);
  if (!is_user_defined(hatch)) throw failure(HostError::invalid_input);
  hatch.scale = space;
  draw_user_pattern(hatch);
}

void put_double(Hatch& hatch, const Value& value) {
  const bool crossed = basic::convert<bool>(value);
  if (!is_user_defined(hatch)) {
    if (crossed) throw failure(HostError::invalid_input);
    return;
  }
  hatch.crossed = crossed ? 1 : 0;
  draw_user_pattern(hatch);
}

void put_style(Hatch& hatch, const Value& value) {
  const auto style = basic::convert<std::int32_t>(value);
  if (style < Hatch::normal_style || style > Hatch::ignore_style) {
    throw failure(HostError::invalid_input);
  }
  hatch.style = style;
}

void put_object_type(Hatch& hatch, const Value& value) {
  const auto type = basic::convert<std::int32_t>(value);
  if (type != 0 && type != 1) throw failure(HostError::invalid_input);
  if (type != hatch.gradient) throw not_supported("Changing a HATCH to or from a gradient");
}

void put_elevation(Hatch& hatch, const Value& value) { hatch.elevation_point.z = to_number(value); }

constexpr std::array hatch_rows{
    Property<Hatch>{Member::PatternName, [](const Hatch& hatch) -> Value { return hatch.pattern; }},
    Property<Hatch>{Member::PatternType,
                    [](const Hatch& hatch) -> Value { return hatch.pattern_type; }},
    Property<Hatch>{Member::PatternAngle, [](const Hatch& hatch) -> Value { return hatch.angle; },
                    put_angle},
    Property<Hatch>{
        Member::PatternScale,
        [](const Hatch& hatch) -> Value { return is_user_defined(hatch) ? 1.0 : hatch.scale; },
        put_scale},
    Property<Hatch>{
        Member::PatternSpace,
        [](const Hatch& hatch) -> Value { return is_user_defined(hatch) ? hatch.scale : 1.0; },
        put_space},
    Property<Hatch>{Member::PatternDouble,
                    [](const Hatch& hatch) -> Value { return hatch.crossed != 0; }, put_double},
    Property<Hatch>{Member::Elevation,
                    [](const Hatch& hatch) -> Value { return hatch.elevation_point.z; },
                    put_elevation},
    Property<Hatch>{Member::HatchStyle, [](const Hatch& hatch) -> Value { return hatch.style; },
                    put_style},
    Property<Hatch>{Member::HatchObjectType,
                    [](const Hatch& hatch) -> Value { return hatch.gradient; }, put_object_type},
    Property<Hatch>{
        Member::NumberOfLoops,
        [](const Hatch& hatch) -> Value { return static_cast<std::int32_t>(hatch.loops.size()); }},
    Property<Hatch>{Member::Area, [](const Hatch& hatch) -> Value { return area(hatch); }},
};

}  // namespace

std::span<const Property<Hatch>> properties(const Hatch&) { return hatch_rows; }

}  // namespace velmar::embedded
