#include "drawing/dimension/linear_layout.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "drawing/geometry/angle.h"
#include "drawing/geometry/ocs.h"

namespace velmar::drawing {
namespace {

constexpr double tolerance = 1e-9;
constexpr double right_angle = std::numbers::pi / 2;

/// Along the axes without the noise of pi.
Point direction(double angle) {
  constexpr double noise = 1e-15;
  const auto clean = [](double value) { return std::abs(value) < noise ? 0 : value; };
  return {clean(std::cos(angle)), clean(std::sin(angle)), 0};
}
double angle_of(Point vector) { return std::atan2(vector.y, vector.x); }

/// The same line's direction that reads from below or from the right.
double readable(double angle) {
  const double turned = wrapped(angle);
  const bool is_upside_down =
      turned > right_angle + tolerance && turned <= 3 * right_angle + tolerance;
  return is_upside_down ? turned - std::numbers::pi : turned;
}

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
  if (std::abs(slope) < tolerance) return point;
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
  const Point along = direction(line.angle);
  const bool is_oblique = std::abs(std::sin(dimension.oblique)) > tolerance;
  const Point extension = direction(line.angle + (is_oblique ? dimension.oblique : right_angle));
  line.start = foot(line.first, on_line, along, extension);
  const Point end = foot(line.second, on_line, along, extension);
  line.length = norm(end - line.start);
  line.along = line.length > 0 ? (end - line.start) * (1 / line.length) : along;
  const double turn = dimension.horizontal_direction;
  line.up = direction(readable(line.angle + turn) - turn + right_angle);
  return line;
}

/// Sizes in drawing units.
struct Sizes {
  double arrow, gap, offset, beyond, line_beyond, shift;
  bool has_ticks;

  Sizes(const DimVariables& v, double text_height)
      : arrow(v.arrow_size * v.factor()),
        gap(std::abs(v.text_gap) * v.factor()),
        offset(v.extension_offset * v.factor()),
        beyond(v.extension_beyond * v.factor()),
        line_beyond(v.line_beyond * v.factor()),
        shift(v.text_shift * text_height),
        has_ticks(v.tick_size > 0) {}
};

/// Which of text and arrows are between the extension lines.
struct Fit {
  bool text, arrows;
};

Fit fit_of(const DimVariables& v, const Sizes& sizes, double length, double text_room) {
  enum : std::int32_t { both_move, arrows_move_first, text_moves_first };
  const double arrows_room = sizes.has_ticks ? 0 : 2 * sizes.arrow;
  if (text_room + arrows_room <= length) return {true, true};
  if (v.text_inside != 0) return {true, sizes.has_ticks};
  const bool text_fits = text_room <= length, arrows_fit = arrows_room <= length;
  if (v.fit == both_move) return {false, false};
  if (v.fit == arrows_move_first) return {text_fits, false};
  if (v.fit == text_moves_first) return {false, arrows_fit};
  if (text_fits) return {true, false};
  return {false, arrows_fit};
}

class Layouter {
 public:
  Layouter(const Dimension& dimension, const DimVariables& variables, TextRoom text,
           std::pair<double, double> trims)
      : dimension_(dimension),
        v_(variables),
        text_(text),
        sizes_(variables, text.height),
        trims_(trims),
        line_(line_of(dimension)) {}

  LinearLayout result() {
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
    if (dimension_.text_rotation != 0) return dimension_.text_rotation;
    const double turn = dimension_.horizontal_direction;
    const bool horizontal = (inside ? v_.inside_horizontal : v_.outside_horizontal) != 0;
    return horizontal ? -turn : readable(line_.angle + turn) - turn;
  }

  /// What the text takes up along the dimension line, or square to it.
  double text_along() const {
    const double turn = layout_.text_angle - line_.angle;
    return std::abs(text_.width * std::cos(turn)) + std::abs(text_.height * std::sin(turn));
  }
  double text_across() const {
    const double turn = layout_.text_angle - line_.angle;
    return std::abs(text_.width * std::sin(turn)) + std::abs(text_.height * std::cos(turn));
  }
  bool is_parallel() const {
    return std::abs(std::sin(layout_.text_angle - line_.angle)) < tolerance;
  }

  void place_text() {
    layout_.text_angle = text_angle(true);
    const double room = text_.width > 0 ? text_along() + 2 * sizes_.gap : 0;
    fit_ = fit_of(v_, sizes_, line_.length, room);
    if (!dimension_.has_user_text_place()) return choose_text_place();
    layout_.text_middle = dimension_.text_position;
    const double place = line_.place_of(layout_.text_middle);
    fit_.text = place >= 0 && place <= line_.length;
    const double arrows = sizes_.has_ticks ? 0 : 2 * sizes_.arrow;
    if (!fit_.text) fit_.arrows = arrows <= line_.length;
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

  /// How far the middle of the text is above the dimension line.
  double text_height_over_line() const {
    enum : std::int32_t { in_line, above, outside, japanese, below };
    const bool lies_across = !is_parallel() && dimension_.text_rotation == 0;
    if (v_.vertical == in_line || lies_across) return v_.vertical == in_line ? sizes_.shift : 0;
    const double away = sizes_.gap + text_across() / 2;
    if (v_.vertical == below) return -away;
    if (v_.vertical == outside && line_.height_of(line_.first) > 0) return -away;
    return away;
  }

  void add_extension(Point from, Point to, bool suppressed) {
    const double length = norm(to - from);
    if (suppressed || !(length > tolerance * (1 + norm(to)))) return;
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
    if (to - from > tolerance * (1 + line_.length)) {
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
    const double clear = text_across() / 2 + sizes_.gap * (1 - tolerance);
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

  /// From the middle of the line to a text that the user took away from it.
  void add_leader() {
    constexpr std::int32_t with_leader = 1;
    if (v_.text_movement != with_leader || !dimension_.has_user_text_place() || text_.width <= 0) {
      return;
    }
    const Point from = line_.at(line_.length / 2);
    const Point text_along_direction = direction(layout_.text_angle);
    const double side = dot(from - layout_.text_middle, text_along_direction) < 0 ? -1 : 1;
    const Point to =
        layout_.text_middle + text_along_direction * (side * (text_.width / 2 + sizes_.gap));
    const bool is_away = norm(layout_.text_middle - from) > text_.width / 2 + 2 * sizes_.gap;
    if (is_away) layout_.lines.push_back({from, to});
  }

  const Dimension& dimension_;
  const DimVariables& v_;
  TextRoom text_;
  Sizes sizes_;
  std::pair<double, double> trims_;
  Line line_;
  Fit fit_{true, true};
  LinearLayout layout_;
};

}  // namespace

LinearLayout lay_out(const Dimension& dimension, const DimVariables& variables, TextRoom text,
                     std::pair<double, double> trims) {
  return Layouter(dimension, variables, text, trims).result();
}

}  // namespace velmar::drawing
