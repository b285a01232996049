#include "drawing/entities/text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <optional>
#include <utility>

#include "drawing/entities/text_size.h"
#include "drawing/geometry/angle.h"
#include "drawing/geometry/ocs.h"
#include "drawing/geometry/plane_map.h"

namespace velmar::drawing {

namespace {

enum Horizontal : std::int32_t { left, center, right, aligned, middle, fit };
enum Vertical : std::int32_t { baseline, bottom, vertical_middle, top };
constexpr std::int32_t backward_flag = 2, upside_down_flag = 4;

bool is_stretched(const Text& text) { return text.horizontal == aligned || text.horizontal == fit; }

bool is_justified(const Text& text) { return text.horizontal != left || text.vertical != baseline; }

/// Where the first character begins on the baseline, seen from the point that the text hangs on:
/// x along the text, y upward, as long as it is neither backward nor upside down.
Point start_from_anchor(const Text& text, const TextSize& size) {
  const bool backward = (text.generation & backward_flag) != 0;
  if (is_stretched(text)) return {backward ? -size.width : 0, 0, 0};
  Point start;
  if (text.horizontal == center || text.horizontal == middle) start.x = -size.width / 2;
  if (text.horizontal == right) start.x = -size.width;
  if (text.vertical == bottom) start.y = text.height * font_of(text).descent();
  if (text.vertical == vertical_middle) start.y = -text.height / 2;
  if (text.vertical == top) start.y = -text.height;
  const bool about_strokes = text.horizontal == middle && text.vertical == baseline;
  if (about_strokes) start.y = (size.descent - size.ascent) / 2;
  return start;
}

/// From there to the OCS. Backward and upside-down texts are mirrored about the point they hang on.
Point in_ocs(const Text& text, Point from_anchor) {
  const bool on_insertion = !is_justified(text) || is_stretched(text);
  const double x = (text.generation & backward_flag) != 0 ? -from_anchor.x : from_anchor.x;
  const double y = (text.generation & upside_down_flag) != 0 ? -from_anchor.y : from_anchor.y;
  const double c = std::cos(text.rotation), s = std::sin(text.rotation);
  return (on_insertion ? text.insertion : text.alignment_point) +
         Point{x * c - y * s, x * s + y * c, 0};
}

/// Of the drawn text in the OCS, counter-clockwise from the lower left one as it lies there.
using Corners = std::array<Point, 4>;
std::optional<Corners> corners(const Text& given) {
  const Text text = stretched(given);
  const TextSize size = natural_size(text);
  if (!size.drawn) return {};
  constexpr double steepest = 85 * std::numbers::pi / 180;
  const double lean = std::tan(std::clamp(text.oblique, -steepest, steepest));
  const Point start = start_from_anchor(text, size);
  const auto corner = [&](double x, double y) {
    return in_ocs(text, start + Point{x + lean * y, y, 0});
  };
  double x0 = size.left, x1 = size.right, y0 = -size.descent, y1 = size.ascent;
  if ((text.generation & backward_flag) != 0) std::swap(x0, x1);
  if ((text.generation & upside_down_flag) != 0) std::swap(y0, y1);
  return Corners{corner(x0, y0), corner(x1, y0), corner(x1, y1), corner(x0, y1)};
}

std::optional<Point> middle_of(const Text& text) {
  const auto found = corners(text);
  if (!found) return {};
  return ((*found)[0] + (*found)[2]) * 0.5;
}

/// After a mirror the rotation is that of the mirrored baseline. Of the two readable ways along it
/// the text takes the one nearer to its old direction; its middle goes where it belongs.
void keep_readable(Text& text, Point old_direction, std::optional<Point> text_middle) {
  constexpr double tolerance = 1e-9;
  const Point now =
      ocs_to_world(text.normal).direction({std::cos(text.rotation), std::sin(text.rotation), 0});
  const double agreement = dot(now, old_direction);
  const bool square = std::abs(agreement) <= tolerance;
  if (square ? std::cos(text.rotation) < -tolerance : agreement < 0) {
    text.rotation = wrapped(text.rotation + std::numbers::pi);
    if (is_stretched(text)) std::swap(text.insertion, text.alignment_point);
  }
  const auto now_middle = middle_of(text);
  if (!now_middle || !text_middle) return;
  const Point shift = *text_middle - *now_middle;
  text.insertion = text.insertion + shift;
  if (is_justified(text)) text.alignment_point = text.alignment_point + shift;
}

}  // namespace

Matrix text_plane(const Text& text) {
  const Point start = start_from_anchor(text, natural_size(text));
  const Point origin = in_ocs(text, start);
  return {in_ocs(text, start + x_axis) - origin,
          in_ocs(text, start + y_axis) - origin,
          z_axis,
          origin,
          {}};
}

Text stretched(const Text& text) {
  if (!is_stretched(text)) return text;
  const Point way = text.alignment_point - text.insertion;
  const double factor = std::hypot(way.x, way.y) / natural_size(text).width;
  if (!(factor > 0) || !std::isfinite(factor)) return text;
  Text drawn = text;
  drawn.rotation = std::atan2(way.y, way.x);
  (text.horizontal == aligned ? drawn.height : drawn.width_factor) *= factor;
  return drawn;
}

Point drawn_origin(const Text& text) {
  const auto found = corners(text);
  return found ? found->front() : in_ocs(text, start_from_anchor(text, {}));
}

void place(Text& text) {
  if (!is_justified(text)) return;
  if (is_stretched(text))
    text = stretched(text);
  else
    text.insertion = in_ocs(text, start_from_anchor(text, natural_size(text)));
}

std::vector<Point> outline(const Text& text) {
  const auto found = corners(text);
  if (!found) return {};
  const Matrix world = ocs_to_world(text.normal);
  std::vector<Point> points;
  for (Point corner : *found) points.push_back(world(corner));
  return points;
}

Box extents(const Text& text) {
  Box box;
  for (Point corner : outline(text)) box.add(corner);
  return extruded(box, text.normal, text.thickness);
}

// A mirrored text stays readable: it covers the mirror image of its box, its letters are not
// mirrored. Of a map that shears, the text takes the effect on its baseline and on areas.
void transform(Text& text, const Matrix& matrix) {
  const PlaneMap plane = plane_map(matrix, text.normal);
  Point old_direction;
  std::optional<Point> text_middle;
  if (plane.mirrored) {
    old_direction =
        ocs_to_world(text.normal).direction({std::cos(text.rotation), std::sin(text.rotation), 0});
    text_middle = middle_of(text);
    if (text_middle) text_middle = plane.map(*text_middle);
  }

  const double along = plane.along(text.rotation), across = plane.across(text.rotation);
  text.height *= across;
  if (across != 0) text.width_factor *= along / across;
  text.rotation = plane.angle(text.rotation);
  text.insertion = plane.map(text.insertion);
  if (is_justified(text)) text.alignment_point = plane.map(text.alignment_point);
  text.thickness *= plane.rise;
  text.normal = plane.normal;
  if (plane.mirrored) keep_readable(text, old_direction, text_middle);
}

}  // namespace velmar::drawing
