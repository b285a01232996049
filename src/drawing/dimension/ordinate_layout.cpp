#include <cmath>

#include "drawing/dimension/layout.h"
#include "drawing/dimension/layout_rules.h"
#include "drawing/geometry/angle.h"
#include "drawing/geometry/ocs.h"

namespace velmar::drawing {

/// The line leads from the feature square to what is measured, with a slanted piece where the end
/// is beside it; the text stands at its end, along it.
DimensionLayout ordinate_layout(const Dimension& dimension, const DimVariables& v, TextRoom text) {
  const Matrix to_ocs = world_to_ocs(dimension.normal);
  const Point feature = to_ocs(dimension.first), end = to_ocs(dimension.second);
  const LayoutSizes sizes(v, text.height);
  const bool of_x = (dimension.flags & Dimension::ordinate_x_flag) != 0;
  const double turn = -dimension.horizontal_direction;
  const Point axis = direction_of(of_x ? turn + right_angle : turn);
  const double reach = dot(end - feature, axis);
  const Point way = axis * (reach < 0 ? -1 : 1);
  const Point beside = (end - feature) - axis * reach;

  DimensionLayout layout;
  layout.definition = to_ocs(dimension.definition);
  const auto add = [&](Point from, Point to) {
    if (norm(to - from) > layout_tolerance * (1 + norm(to))) layout.lines.push_back({from, to});
  };
  const double length = std::abs(reach);
  const Point begin = feature + way * std::min(sizes.offset, length);
  if (norm(beside) <= layout_tolerance * (1 + norm(end))) {
    add(begin, end);
  } else {
    const double straight = std::min(sizes.arrow, length / 3);
    const Point leaves =
        feature + way * std::max(length - 2 * straight, std::min(sizes.offset, length));
    const Point arrives = end - way * straight;
    add(begin, leaves);
    add(leaves, arrives);
    add(arrives, end);
  }

  const double along = angle_of(way);
  const bool is_turned = dimension.text_rotation != 0;
  layout.text_angle = is_turned ? dimension.text_rotation : readable(along - turn) + turn;
  const double half = room_along(text, layout.text_angle, along) / 2;
  const double lift = text_distance(v, sizes, text.height, false);
  const Point up = direction_of(layout.text_angle + right_angle);
  layout.text_middle = end + way * (sizes.gap + half) + up * lift;
  if (dimension.has_user_text_place()) layout.text_middle = dimension.text_position;
  return layout;
}

DimensionLayout lay_out(const Dimension& dimension, const DimVariables& variables, TextRoom text,
                        ArrowTrims trims) {
  switch (dimension.type()) {
    case Dimension::rotated:
    case Dimension::aligned:
      break;
    case Dimension::angular_2_line:
    case Dimension::angular_3_point:
      return angular_layout(dimension, variables, text, trims);
    case Dimension::diameter:
    case Dimension::radius:
      return round_layout(dimension, variables, text, trims);
    case Dimension::ordinate:
      return ordinate_layout(dimension, variables, text);
  }
  return linear_layout(dimension, variables, text, trims);
}

}  // namespace velmar::drawing
