#include <algorithm>
#include <cmath>

#include "drawing/dimension/layout.h"
#include "drawing/dimension/layout_rules.h"
#include "drawing/dimension/sector.h"
#include "drawing/geometry/angle.h"
#include "drawing/geometry/ocs.h"

namespace velmar::drawing {
namespace {

class AngularLayouter {
 public:
  AngularLayouter(const Dimension& dimension, const DimVariables& variables, TextRoom text,
                  ArrowTrims trims)
      : dimension_(dimension),
        v_(variables),
        text_(text),
        sizes_(variables, text.height),
        trims_(trims),
        sector_(sector_of(dimension)),
        length_(sector_.radius * sector_.sweep) {}

  DimensionLayout result() {
    layout_.definition = world_to_ocs(dimension_.normal)(dimension_.definition);
    if (!(sector_.radius > 0)) return std::move(layout_);
    place_text();
    add_extension(sector_.first, sector_.start, v_.no_extension1 != 0);
    add_extension(sector_.second, sector_.start + sector_.sweep, v_.no_extension2 != 0);
    if (!are_marks_left_out()) add_arrows();
    add_arcs();
    if (has_leader(dimension_, v_) && text_.width > 0) {
      const auto leader = leader_to_text(at(length_ / 2), layout_, text_, sizes_.gap);
      if (leader) layout_.lines.push_back(*leader);
    }
    return std::move(layout_);
  }

 private:
  /// `place`: how far along the arc from its start.
  double angle_at(double place) const { return sector_.start + place / sector_.radius; }
  Point at(double place) const {
    return sector_.vertex + direction_of(angle_at(place)) * sector_.radius;
  }
  /// Where the arc stands in the direction of a point, as near to its middle as may be.
  double place_of(Point point) const {
    const double middle = sector_.start + sector_.sweep / 2;
    const double away = std::remainder(angle_of(point - sector_.vertex) - middle, full_turn);
    return length_ / 2 + away * sector_.radius;
  }

  double along_at(double place) const {
    return room_along(text_, layout_.text_angle, angle_at(place) + right_angle);
  }
  double across_at(double place) const {
    return room_across(text_, layout_.text_angle, angle_at(place) + right_angle);
  }

  void turn_text(double place, bool inside) {
    layout_.text_angle = text_angle_at(dimension_, v_, angle_at(place) + right_angle, inside);
  }

  void place_text() {
    text_place_ = length_ / 2;
    turn_text(text_place_, true);
    const double room = text_.width > 0 ? along_at(text_place_) + 2 * sizes_.gap : 0;
    fit_ = fit_of(v_, sizes_, length_, room);
    if (dimension_.has_user_text_place()) return keep_text_place();
    if (!fit_.text) {
      const double marks = sizes_.has_ticks ? 0 : (fit_.arrows ? 1 : 2) * sizes_.arrow;
      turn_text(length_, false);
      text_place_ = length_ + marks + sizes_.gap + along_at(length_) / 2;
    }
    turn_text(text_place_, fit_.text);
    layout_.text_middle = at(text_place_) + distance_from_arc();
  }

  void keep_text_place() {
    layout_.text_middle = dimension_.text_position;
    text_place_ = place_of(layout_.text_middle);
    fit_.text = text_place_ >= 0 && text_place_ <= length_;
    if (!fit_.text) fit_.arrows = sizes_.marks() <= length_;
    turn_text(text_place_, fit_.text);
  }

  Point distance_from_arc() const {
    const double outward = angle_at(text_place_), turn = dimension_.horizontal_direction;
    const double tangent = outward + right_angle;
    const bool is_parallel = std::abs(std::sin(layout_.text_angle - tangent)) < layout_tolerance;
    if (v_.vertical != 0 && !is_parallel && dimension_.text_rotation == 0) return {};
    const Point up = direction_of(readable(tangent + turn) - turn + right_angle);
    const bool outward_is_down = dot(up, direction_of(outward)) < 0;
    return up * text_distance(v_, sizes_, across_at(text_place_), outward_is_down);
  }

  /// From the end of what is measured that is nearest to the arc; nothing where the arc stands on
  /// it.
  void add_extension(Reach reach, double angle, bool suppressed) {
    const double radius = sector_.radius;
    const bool outward = radius > reach.far, inward = radius < reach.near;
    if (suppressed || (!outward && !inward)) return;
    const double side = outward ? 1 : -1;
    const double from = outward ? reach.far : reach.near;
    const double offset = std::min(sizes_.offset, std::abs(radius - from));
    const Point way = direction_of(angle);
    layout_.extensions.push_back({sector_.vertex + way * (from + side * offset),
                                  sector_.vertex + way * (radius + side * sizes_.beyond)});
  }

  bool are_marks_left_out() const {
    return !fit_.arrows && v_.text_inside != 0 && v_.no_outside_line != 0;
  }

  /// The mark stands with its tip and its base on the arc.
  ArrowPlace arrow(double place, double side) const {
    const double half = std::min(1.0, sizes_.arrow / (2 * sector_.radius));
    const double base = place + side * 2 * std::asin(half) * sector_.radius;
    return {at(place), angle_of(at(place) - at(base))};
  }

  void add_arrows() {
    const double side = fit_.arrows ? 1 : -1;
    layout_.first_arrow = arrow(0, side);
    layout_.second_arrow = arrow(length_, -side);
  }

  void add_arc(double from, double to) {
    if (to - from <= layout_tolerance * (1 + length_)) return;
    layout_.arcs.push_back({sector_.vertex, sector_.radius, angle_at(from), angle_at(to)});
  }

  bool stands_in_arc() const {
    const double away = std::abs(norm(layout_.text_middle - sector_.vertex) - sector_.radius);
    return text_.width > 0 && away < across_at(text_place_) / 2 + sizes_.gap * (1 - 1e-6);
  }

  /// The first and the second half can be left out, and the text may stand between them.
  void add_halves(double from, double to) {
    const double half = along_at(text_place_) / 2 + sizes_.gap;
    const bool interrupted =
        stands_in_arc() && text_place_ + half > from && text_place_ - half < to;
    if (!interrupted && v_.no_line1 == 0 && v_.no_line2 == 0) return add_arc(from, to);
    const double gap = interrupted ? half : 0;
    if (v_.no_line1 == 0) add_arc(from, std::min(text_place_ - gap, to));
    if (v_.no_line2 == 0) add_arc(std::max(text_place_ + gap, from), to);
  }

  void add_arcs() {
    const double trim1 = trims_.first * sizes_.arrow, trim2 = trims_.second * sizes_.arrow;
    if (fit_.arrows) {
      add_halves(trim1, length_ - trim2);
    } else if (v_.line_inside != 0) {
      add_halves(0, length_);
    }
    if (fit_.arrows || are_marks_left_out()) return;
    const double tail = 2 * sizes_.arrow;
    if (v_.no_line1 == 0) add_arc(-tail, -trim1);
    if (v_.no_line2 == 0) add_arc(length_ + trim2, length_ + tail);
  }

  const Dimension& dimension_;
  const DimVariables& v_;
  TextRoom text_;
  LayoutSizes sizes_;
  ArrowTrims trims_;
  Sector sector_;
  double length_, text_place_ = 0;
  Fit fit_{true, true};
  DimensionLayout layout_;
};

}  // namespace

DimensionLayout angular_layout(const Dimension& dimension, const DimVariables& variables,
                               TextRoom text, ArrowTrims trims) {
  return AngularLayouter(dimension, variables, text, trims).result();
}

}  // namespace velmar::drawing
