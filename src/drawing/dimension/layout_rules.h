#pragma once

#include <numbers>
#include <optional>

#include "drawing/dimension/layout.h"

namespace velmar::drawing {

// What the layouts of all kinds of dimensions have in common.

inline constexpr double layout_tolerance = 1e-9;
inline constexpr double right_angle = std::numbers::pi / 2;

/// Along the axes without the noise of pi.
Point direction_of(double angle);
/// The same line's direction that reads from below or from the right.
double readable(double angle);

/// Sizes in drawing units.
struct LayoutSizes {
  double arrow, gap, offset, beyond, line_beyond, shift;
  bool has_ticks;

  LayoutSizes(const DimVariables& v, double text_height);
  /// What two marks take of the dimension line.
  double marks() const { return has_ticks ? 0 : 2 * arrow; }
};

/// Which of text and arrows are between the extension lines.
struct Fit {
  bool text, arrows;
};
Fit fit_of(const DimVariables& variables, const LayoutSizes& sizes, double length,
           double text_room);

/// How far the middle of a text that takes up so much square to the dimension line is away from it,
/// above it; `outside_is_below`: that is where the text is farther from what is measured.
double text_distance(const DimVariables& variables, const LayoutSizes& sizes, double text_across,
                     bool outside_is_below);

/// Whether a line leads to the text, which the user took away from the dimension line.
bool has_leader(const Dimension& dimension, const DimVariables& variables);
/// From there to the nearer end of the text; nothing where the text is near.
std::optional<Stretch> leader_to_text(Point from, const DimensionLayout& layout, TextRoom text,
                                      double gap);

/// What a text that is turned takes up along that direction, or square to it.
double room_along(TextRoom text, double text_angle, double direction);
double room_across(TextRoom text, double text_angle, double direction);

/// The angle of a text that stands at the dimension line where that has this direction.
double text_angle_at(const Dimension& dimension, const DimVariables& variables, double direction,
                     bool inside);

}  // namespace velmar::drawing
