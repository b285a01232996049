#include "drawing/entities/tolerance.h"

#include <algorithm>

#include "drawing/entities/mtext_line.h"
#include "drawing/fonts/lower_case.h"
#include "drawing/fonts/stroke_font.h"
#include "drawing/geometry/plane_direction.h"
#include "drawing/geometry/plane_map.h"

namespace velmar::drawing {
namespace {

std::vector<std::string> split(const std::string& text, std::string_view separator) {
  std::vector<std::string> parts;
  const std::string lower = lower_case(text);
  for (std::size_t begin = 0;;) {
    const std::size_t end = lower.find(separator, begin);
    parts.push_back(text.substr(begin, end - begin));
    if (end == text.npos) return parts;
    begin = end + separator.size();
  }
}

/// What stands in a cell. A tolerance has one line a cell, so ends of paragraphs mean nothing.
MTextLine cell_line(const std::string& text, const CharacterFormat& format, FontShelf& fonts) {
  MTextLine line;
  for (const Piece& piece : take_apart(text, format, fonts)) {
    if (const auto* words = std::get_if<Words>(&piece)) line.add(words->text, words->format);
    if (const auto* stack = std::get_if<Stack>(&piece)) line.add(*stack);
  }
  return line;
}

void add_line(TextLayout& layout, double x0, double y0, double x1, double y1) {
  layout.bars.emplace_back(Point{x0, y0, 0}, Point{x1, y1, 0});
}

}  // namespace

TextLayout layout(const Tolerance& tolerance) {
  FontShelf own;
  FontShelf& fonts = tolerance.look.fonts ? *tolerance.look.fonts : own;
  CharacterFormat format;
  format.font = tolerance.look.font ? tolerance.look.font : stroke_font();
  format.height = tolerance.text_height * tolerance.scale;
  const double gap = tolerance.gap * tolerance.scale;
  const double frame_height = format.height + 2 * gap;

  TextLayout made;
  double middle = 0;
  for (const std::string& frame : split(tolerance.text, "\n")) {
    const double top = middle + frame_height / 2, bottom = middle - frame_height / 2;
    double x = 0;
    for (const std::string& cell : split(frame, "%%v")) {
      const MTextLine line = cell_line(cell, format, fonts);
      if (line.empty()) continue;
      if (x == 0) add_line(made, 0, bottom, 0, top);
      line.place({x + gap, middle - format.height / 2, 0}, made);
      x += std::max(line.pen(), line.width()) + 2 * gap;
      add_line(made, x, bottom, x, top);
    }
    if (x > 0) {
      add_line(made, 0, bottom, x, bottom);
      add_line(made, 0, top, x, top);
    }
    middle -= frame_height;
  }
  const Point along = plane_direction(tolerance.direction, tolerance.normal);
  const Point normal = unit_normal(tolerance.normal);
  made.world = {along, cross(normal, along), normal, tolerance.insertion, {}};
  return made;
}

std::vector<Point> outline(const Tolerance& tolerance) { return outline(layout(tolerance)); }

Box extents(const Tolerance& tolerance) { return extents(layout(tolerance)); }

// A mirrored one stays readable, on the image of its box.
void transform(Tolerance& tolerance, const Matrix& matrix) {
  const PlaneMap plane = plane_map(matrix, tolerance.normal);
  const Point old_direction = plane_direction(tolerance.direction, tolerance.normal);
  const Point turned = matrix.direction(old_direction);
  std::vector<Point> image;
  if (plane.mirrored) image = outline(tolerance);
  tolerance.insertion = matrix(tolerance.insertion);
  tolerance.scale *= plane.stretch;
  tolerance.normal = plane.normal;
  if (turned != old_direction) tolerance.direction = plane_direction(turned, plane.normal);
  if (!plane.mirrored) return;

  if (dot(tolerance.direction, old_direction) < -1e-9) tolerance.direction = -tolerance.direction;
  const std::vector<Point> now = outline(tolerance);
  if (now.empty()) return;
  tolerance.insertion =
      tolerance.insertion + matrix((image[0] + image[2]) * 0.5) - (now[0] + now[2]) * 0.5;
}

}  // namespace velmar::drawing
