#include <algorithm>
#include <cmath>
#include <numbers>

#include "drawing/dimension/layout.h"
#include "drawing/dimension/layout_rules.h"
#include "drawing/geometry/ocs.h"

namespace velmar::drawing {
namespace {

constexpr double nearly_alike = layout_tolerance;
/// The dimension line: from `start`, where it meets the first extension line, `length` along.
struct Line {
  Point start, along, up;  // `up`: to the side on which texts stand
  Point first, second;     // where the extension lines begin
  double length = 0, angle = 0;

  Point at(double place) const { return start + along * place; }
  double place_of(Point point) const { return dot(point - start, along); }
  double height_of(Point point) const { return dot(point - start, up); }
};

/// Along an extension line onto the dimension line.
Point foot(Point point, Point on_line, Point along, Point extension) {
  const Point across{-along.y, along.x, 0};
  const double slope = dot(extension, across);
  if (std::abs(slope) < nearly_alike) return point;
  return point + extension * (dot(on_line - point, across) / slope);
}

Line line_of(const Dimension& dimension) {
  const Matrix to_ocs = world_to_ocs(dimension.normal);
  const Point on_line = to_ocs(dimension.definition);
  Line line;
  line.first = to_ocs(dimension.first);
  line.second = to_ocs(dimension.second);
  line.first.z = line.second.z = on_line.z;
  line.angle = line_angle(dimension);
  const Point along = direction_of(line.angle);
  const bool is_oblique = std::abs(std::sin(dimension.oblique)) > nearly_alike;
  const Point extension = direction_of(line.angle + (is_oblique ? dimension.oblique : right_angle));
  line.start = foot(line.first, on_line, along, extension);
  const Point end = foot(line.second, on_line, along, extension);
  line.length = norm(end - line.start);
  line.along = line.length > 0 ? (end - line.start) * (1 / line.length) : along;
  const double turn = dimension.horizontal_direction;
  line.up = direction_of(readable(line.angle + turn) - turn + right_angle);
  return line;
}

class Layouter {
 public:
  Layouter(const Dimension& dimension, const DimVariables& variables, TextRoom text,
           ArrowTrims trims)
      : dimension_(dimension),
        v_(variables),
        text_(text),
        sizes_(variables, text.height),
        trims_(trims),
        line_(line_of(dimension)) {}

  DimensionLayout result() {
    place_text();
    add_extension(line_.first, line_.start, v_.no_extension1 != 0);
    add_extension(line_.second, line_.at(line_.length), v_.no_extension2 != 0);
    add_arrows();
    add_lines();
    add_leader();
    layout_.definition = line_.at(line_.length);
    return std::move(layout_);
  }

 private:
  double text_angle(bool inside) const {
    return text_angle_at(dimension_, v_, line_.angle, inside);
  }
  double text_along() const { return room_along(text_, layout_.text_angle, line_.angle); }
  double text_across() const { return room_across(text_, layout_.text_angle, line_.angle); }
  bool is_parallel() const {
    return std::abs(std::sin(layout_.text_angle - line_.angle)) < nearly_alike;
  }

  void place_text() {
    layout_.text_angle = text_angle(true);
    const double room = text_.width > 0 ? text_along() + 2 * sizes_.gap : 0;
    fit_ = fit_of(v_, sizes_, line_.length, room);
    if (!dimension_.has_user_text_place()) return choose_text_place();
    layout_.text_middle = dimension_.text_position;
    const double place = line_.place_of(layout_.text_middle);
    fit_.text = place >= 0 && place <= line_.length;
    if (!fit_.text) fit_.arrows = sizes_.marks() <= line_.length;
    layout_.text_angle = text_angle(fit_.text);
  }

  void choose_text_place() {
    enum : std::int32_t { centered, beside_first, beside_second, over_first, over_second };
    const bool at_first = v_.horizontal == beside_first || v_.horizontal == over_first;
    const bool at_second = v_.horizontal == beside_second || v_.horizontal == over_second;
    layout_.text_angle = text_angle(fit_.text);
    double place = line_.length / 2;
    if (!fit_.text) {
      const double marks = fit_.arrows ? sizes_.arrow : 2 * sizes_.arrow;
      const double way = (sizes_.has_ticks ? 0 : marks) + sizes_.gap + text_along() / 2;
      place = at_first ? -way : line_.length + way;
    } else if (at_first || at_second) {
      const double marks = fit_.arrows && !sizes_.has_ticks ? sizes_.arrow : 0;
      const double way = marks + sizes_.gap + text_along() / 2;
      place = at_first ? way : line_.length - way;
    }
    layout_.text_middle = line_.at(place) + line_.up * text_height_over_line();
  }

  double text_height_over_line() const {
    const bool lies_across = !is_parallel() && dimension_.text_rotation == 0;
    if (v_.vertical != 0 && lies_across) return 0;
    return text_distance(v_, sizes_, text_across(), line_.height_of(line_.first) > 0);
  }

  void add_extension(Point from, Point to, bool suppressed) {
    const double length = norm(to - from);
    if (suppressed || !(length > nearly_alike * (1 + norm(to)))) return;
    const Point along = (to - from) * (1 / length);
    const Point begin = from + along * std::min(sizes_.offset, length);
    layout_.extensions.push_back({begin, to + along * sizes_.beyond});
  }

  bool are_marks_left_out() const {
    return !fit_.arrows && v_.text_inside != 0 && v_.no_outside_line != 0;
  }

  void add_arrows() {
    if (are_marks_left_out()) return;
    const double outward = angle_of(line_.along);
    const double first = fit_.arrows ? outward + std::numbers::pi : outward;
    layout_.first_arrow = ArrowPlace{line_.start, first};
    layout_.second_arrow = ArrowPlace{line_.at(line_.length), first + std::numbers::pi};
  }

  void add_line(double from, double to) {
    if (to - from > nearly_alike * (1 + line_.length)) {
      layout_.lines.push_back({line_.at(from), line_.at(to)});
    }
  }

  /// The first and the second half of the line can be left out.
  void add_halves(double from, double to, double parting) {
    if (v_.no_line1 == 0 && v_.no_line2 == 0) return add_line(from, to);
    const double at = std::clamp(parting, from, std::max(from, to));
    if (v_.no_line1 == 0) add_line(from, at);
    if (v_.no_line2 == 0) add_line(at, to);
  }

  /// Where the text interrupts the dimension line.
  bool stands_in_line() const {
    const double clear = text_across() / 2 + sizes_.gap * (1 - nearly_alike);
    return text_.width > 0 && std::abs(line_.height_of(layout_.text_middle)) < clear;
  }

  void add_lines() {
    const double trim1 = trims_.first * sizes_.arrow, trim2 = trims_.second * sizes_.arrow;
    const double text_place = line_.place_of(layout_.text_middle);
    const double half = text_along() / 2 + sizes_.gap;
    if (fit_.arrows || v_.line_inside != 0) {
      const double beyond = sizes_.has_ticks ? sizes_.line_beyond : 0;
      const double from = fit_.arrows ? trim1 - beyond : 0;
      const double to = line_.length - (fit_.arrows ? trim2 - beyond : 0);
      if (stands_in_line() && text_place + half > from && text_place - half < to) {
        if (v_.no_line1 == 0) add_line(from, std::min(text_place - half, to));
        if (v_.no_line2 == 0) add_line(std::max(text_place + half, from), to);
      } else {
        add_halves(from, to, text_place);
      }
    }
    if (!are_marks_left_out()) add_outside_lines(trim1, trim2);
  }

  /// Behind arrows that point inward, and on to a text outside.
  void add_outside_lines(double trim1, double trim2) {
    const double tail = fit_.arrows ? 0 : 2 * sizes_.arrow;
    double before = -tail, behind = line_.length + tail;
    const double text_place = line_.place_of(layout_.text_middle);
    const double across = std::abs(line_.height_of(layout_.text_middle));
    const bool near_line = across < text_across() + 2 * sizes_.gap;
    if (!fit_.text && text_.width > 0 && near_line && v_.text_movement == 0) {
      const double half = text_along() / 2;
      const double reach = stands_in_line() ? -(half + sizes_.gap) : half;
      before = std::min(before, text_place - reach);
      behind = std::max(behind, text_place + reach);
    }
    if (v_.no_line1 == 0) add_line(before, fit_.arrows ? 0 : -trim1);
    if (v_.no_line2 == 0) add_line(line_.length + (fit_.arrows ? 0 : trim2), behind);
  }

  void add_leader() {
    if (!has_leader(dimension_, v_) || text_.width <= 0) return;
    const auto leader = leader_to_text(line_.at(line_.length / 2), layout_, text_, sizes_.gap);
    if (leader) layout_.lines.push_back(*leader);
  }

  const Dimension& dimension_;
  const DimVariables& v_;
  TextRoom text_;
  LayoutSizes sizes_;
  ArrowTrims trims_;
  Line line_;
  Fit fit_{true, true};
  DimensionLayout layout_;
};

}  // namespace

DimensionLayout linear_layout(const Dimension& dimension, const DimVariables& variables,
                              TextRoom text, ArrowTrims trims) {
  return Layouter(dimension, variables, text, trims).result();
}

}  // namespace velmar::drawing
