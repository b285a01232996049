#include "drawing/dimension/layout_rules.h"

#include <cmath>
#include <numbers>

#include "drawing/geometry/angle.h"

namespace velmar::drawing {

Point direction_of(double angle) {
  constexpr double noise = 1e-15;
  const auto clean = [](double value) { return std::abs(value) < noise ? 0 : value; };
  return {clean(std::cos(angle)), clean(std::sin(angle)), 0};
}

double readable(double angle) {
  const double turned = wrapped(angle);
  const bool is_upside_down =
      turned > right_angle + layout_tolerance && turned <= 3 * right_angle + layout_tolerance;
  return is_upside_down ? turned - std::numbers::pi : turned;
}

LayoutSizes::LayoutSizes(const DimVariables& v, double text_height)
    : arrow(v.arrow_size * v.factor()),
      gap(std::abs(v.text_gap) * v.factor()),
      offset(v.extension_offset * v.factor()),
      beyond(v.extension_beyond * v.factor()),
      line_beyond(v.line_beyond * v.factor()),
      shift(v.text_shift * text_height),
      has_ticks(v.tick_size > 0) {}

Fit fit_of(const DimVariables& v, const LayoutSizes& sizes, double length, double text_room) {
  enum : std::int32_t { both_move, arrows_move_first, text_moves_first };
  if (text_room + sizes.marks() <= length) return {true, true};
  if (v.text_inside != 0) return {true, sizes.has_ticks};
  const bool text_fits = text_room <= length, arrows_fit = sizes.marks() <= length;
  if (v.fit == both_move) return {false, false};
  if (v.fit == arrows_move_first) return {text_fits, false};
  if (v.fit == text_moves_first) return {false, arrows_fit};
  if (text_fits) return {true, false};
  return {false, arrows_fit};
}

double text_distance(const DimVariables& v, const LayoutSizes& sizes, double text_across,
                     bool outside_is_below) {
  enum : std::int32_t { in_line, above, outside, japanese, below };
  if (v.vertical == in_line) return sizes.shift;
  const double away = sizes.gap + text_across / 2;
  const bool is_below = v.vertical == below || (v.vertical == outside && outside_is_below);
  return is_below ? -away : away;
}

bool has_leader(const Dimension& dimension, const DimVariables& v) {
  constexpr std::int32_t with_leader = 1;
  return v.text_movement == with_leader && dimension.has_user_text_place();
}

std::optional<Stretch> leader_to_text(Point from, const DimensionLayout& layout, TextRoom text,
                                      double gap) {
  const Point along = direction_of(layout.text_angle);
  const double side = dot(from - layout.text_middle, along) < 0 ? -1 : 1;
  const Point to = layout.text_middle + along * (side * (text.width / 2 + gap));
  const bool is_away = norm(layout.text_middle - from) > text.width / 2 + 2 * gap;
  return is_away ? std::optional(Stretch{from, to}) : std::nullopt;
}

double room_along(TextRoom text, double text_angle, double direction) {
  const double turn = text_angle - direction;
  return std::abs(text.width * std::cos(turn)) + std::abs(text.height * std::sin(turn));
}

double room_across(TextRoom text, double text_angle, double direction) {
  return room_along(text, text_angle, direction + std::numbers::pi / 2);
}

double text_angle_at(const Dimension& dimension, const DimVariables& v, double direction,
                     bool inside) {
  if (dimension.text_rotation != 0) return dimension.text_rotation;
  const double turn = dimension.horizontal_direction;
  const bool horizontal = (inside ? v.inside_horizontal : v.outside_horizontal) != 0;
  return horizontal ? -turn : readable(direction + turn) - turn;
}

}  // namespace velmar::drawing
