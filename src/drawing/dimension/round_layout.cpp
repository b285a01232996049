#include <algorithm>
#include <cmath>
#include <numbers>

#include "drawing/dimension/layout.h"
#include "drawing/dimension/layout_rules.h"
#include "drawing/geometry/angle.h"
#include "drawing/geometry/ocs.h"

namespace velmar::drawing {
namespace {

/// The dimension line is a ray from the centre through the point at which the radius is measured,
/// or the line through both ends of the diameter; places on it are distances from the centre.
class RoundLayouter {
 public:
  RoundLayouter(const Dimension& dimension, const DimVariables& variables, TextRoom text,
                ArrowTrims trims)
      : dimension_(dimension),
        v_(variables),
        text_(text),
        sizes_(variables, text.height),
        trims_(trims),
        is_diameter_(dimension.type() == Dimension::diameter) {
    const Matrix to_ocs = world_to_ocs(dimension.normal);
    near_ = to_ocs(dimension.third);
    const Point other = to_ocs(dimension.definition);
    center_ = is_diameter_ ? (near_ + other) * 0.5 : other;
    radius_ = norm(near_ - center_);
    layout_.definition = other;
    if (radius_ > 0) outward_ = (near_ - center_) * (1 / radius_);
  }

  DimensionLayout result() {
    if (!(radius_ > 0)) return std::move(layout_);
    place_text();
    if (is_text_inside_) {
      add_line_with_text();
    } else {
      add_line_outside();
      if (v_.line_inside != 0) add_line_inside();
      if (v_.line_inside == 0) add_center_mark();
    }
    return std::move(layout_);
  }

 private:
  Point at(double place) const { return center_ + outward_ * place; }
  double place_of(Point point) const { return dot(point - center_, outward_); }
  double line_start() const { return is_diameter_ ? -radius_ : 0; }

  double text_angle(bool inside) const {
    return text_angle_at(dimension_, v_, angle_of(outward_), inside);
  }
  double text_along() const { return room_along(text_, layout_.text_angle, angle_of(outward_)); }
  double text_across() const { return room_across(text_, layout_.text_angle, angle_of(outward_)); }

  /// The marks at the ends: of a radius there is one.
  double marks() const { return sizes_.marks() / (is_diameter_ ? 1 : 2); }

  void place_text() {
    layout_.text_angle = text_angle(true);
    if (dimension_.has_user_text_place()) {
      layout_.text_middle = dimension_.text_position;
      is_text_inside_ = norm(layout_.text_middle - center_) <= radius_;
      layout_.text_angle = text_angle(is_text_inside_);
      // Within a diameter the file gives the place on the line, over which the text stands.
      if (is_text_inside_ && is_diameter_) {
        layout_.text_middle = layout_.text_middle + up() * lift();
      }
      return;
    }
    is_text_inside_ = v_.text_inside != 0;
    layout_.text_angle = text_angle(is_text_inside_);
    const Point along = text_direction();
    if (is_text_inside_) {
      layout_.text_middle = at((radius_ + line_start()) / 2) + up() * lift();
    } else {
      layout_.text_middle =
          elbow_before_text() + along * (hook() + sizes_.gap + text_.width / 2) + up() * lift();
    }
  }

  /// Square to the text, and how far it stands over the line.
  Point up() const { return direction_of(layout_.text_angle + right_angle); }
  double lift() const { return text_distance(v_, sizes_, text_.height, false); }

  /// Along the text, away from the circle.
  Point text_direction() const {
    const Point along = direction_of(layout_.text_angle);
    const bool is_placed = dimension_.has_user_text_place();
    const Point way = is_placed ? layout_.text_middle - near_ : outward_;
    return along * (dot(along, way) < 0 ? -1 : 1);
  }
  bool is_text_along_line() const {
    return std::abs(std::sin(layout_.text_angle - angle_of(outward_))) < layout_tolerance;
  }
  /// A text that is not along the line has a short line before it.
  double hook() const { return is_text_along_line() ? 0 : sizes_.arrow; }

  Point elbow_before_text() const {
    const double given = dimension_.leader_length;
    return at(radius_ + (given > 0 ? given : 2 * sizes_.arrow));
  }

  void add_line(Point from, Point to) {
    if (norm(to - from) > layout_tolerance * (1 + radius_)) layout_.lines.push_back({from, to});
  }

  /// Over both ends of the diameter, or from the centre; the text may stand in it. To a text that
  /// the user placed it goes from its one end alone.
  void add_line_with_text() {
    const bool has_room = marks() <= radius_ - line_start();
    const bool is_short = dimension_.has_user_text_place();
    const double text_place = place_of(layout_.text_middle);
    const double away = norm(layout_.text_middle - at(text_place));
    const double half = text_along() / 2 + sizes_.gap;
    const bool interrupted = text_.width > 0 && away < text_across() / 2 + sizes_.gap * (1 - 1e-6);
    const double trim = is_diameter_ && has_room ? trims_.first * sizes_.arrow : 0;
    const double from = is_short ? text_place - half + sizes_.gap : line_start() + trim;
    const double to = radius_ - (has_room ? trims_.second * sizes_.arrow : 0);
    if (interrupted) {
      if (!is_short) add_line(at(from), at(std::clamp(text_place - half, from, to)));
      add_line(at(std::clamp(text_place + half, from, std::max(from, to))), at(to));
    } else {
      add_line(at(from), at(to));
    }
    add_arrows(has_room);
    if (is_short) layout_.first_arrow.reset();
  }

  void add_arrows(bool inside) {
    const double angle = angle_of(outward_), back = angle + std::numbers::pi;
    layout_.second_arrow = ArrowPlace{near_, inside ? angle : back};
    if (is_diameter_) layout_.first_arrow = ArrowPlace{at(-radius_), inside ? back : angle};
  }

  /// From the mark outside to the text.
  void add_line_outside() {
    const bool points_inward = v_.line_inside == 0;
    if (points_inward) {
      layout_.second_arrow = ArrowPlace{near_, angle_of(outward_) + std::numbers::pi};
    }
    const Point along = text_direction();
    const Point text_begin = layout_.text_middle - along * (text_.width / 2 + sizes_.gap);
    const bool lifted = std::abs(lift()) > layout_tolerance;
    const Point base = lifted ? text_begin - up() * lift() : text_begin;
    const Point elbow = base - along * hook();
    const Point begin = points_inward ? at(radius_ + trims_.second * sizes_.arrow) : near_;
    const Point end = lifted ? base + along * (text_.width + 2 * sizes_.gap) : base;
    if (is_text_along_line()) return add_line(begin, end);
    add_line(begin, elbow);
    add_line(elbow, end);
  }

  void add_line_inside() {
    const bool has_room = marks() <= radius_ - line_start();
    const double trim = has_room ? sizes_.arrow : 0;
    add_line(at(line_start() + (is_diameter_ ? trims_.first * trim : 0)),
             at(radius_ - trims_.second * trim));
    add_arrows(has_room);
  }

  /// A cross; with a negative size lines beyond the circle too.
  void add_center_mark() {
    const double size = std::abs(v_.center_size) * v_.factor();
    if (!(size > 0)) return;
    for (const Point& way : {x_axis, y_axis}) {
      add_line(center_ - way * size, center_ + way * size);
      if (v_.center_size > 0 || radius_ <= size) continue;
      for (const double side : {-1.0, 1.0}) {
        add_line(center_ + way * (side * 2 * size), center_ + way * (side * (radius_ + size)));
      }
    }
  }

  const Dimension& dimension_;
  const DimVariables& v_;
  TextRoom text_;
  LayoutSizes sizes_;
  ArrowTrims trims_;
  bool is_diameter_, is_text_inside_ = true;
  Point near_, center_, outward_ = x_axis;
  double radius_ = 0;
  DimensionLayout layout_;
};

}  // namespace

DimensionLayout round_layout(const Dimension& dimension, const DimVariables& variables,
                             TextRoom text, ArrowTrims trims) {
  return RoundLayouter(dimension, variables, text, trims).result();
}

}  // namespace velmar::drawing
