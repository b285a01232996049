#include "drawing/entities/mtext.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "drawing/entities/text.h"
#include "drawing/geometry/ocs.h"
#include "drawing/geometry/plane_map.h"

namespace velmar::drawing {
namespace {

constexpr double line_spacing = 5.0 / 3;

/// The longer half of "a^b", "a/b" or "a#b".
std::string_view longer_half(std::string_view stack) {
  const std::size_t bar = stack.find_first_of("^/#");
  if (bar == stack.npos) return stack;
  const std::string_view upper = stack.substr(0, bar), lower = stack.substr(bar + 1);
  return upper.size() < lower.size() ? lower : upper;
}

/// Takes one code, which begins with a backslash.
void take_code(std::string_view& rest, std::vector<std::string>& lines) {
  constexpr std::string_view with_value = "ACcFfHWQTp";
  const char letter = rest.size() > 1 ? rest[1] : '\\';
  const std::size_t end = std::min(rest.find(';'), rest.size());
  if (letter == 'P' || letter == 'X') lines.emplace_back();
  if (letter == '~') lines.back() += ' ';
  if (letter == '\\' || letter == '{' || letter == '}') lines.back() += letter;
  if (letter == 'S') lines.back() += longer_half(rest.substr(2, std::max<std::size_t>(end, 2) - 2));
  const bool is_long = letter == 'S' || with_value.find(letter) != with_value.npos;
  rest.remove_prefix(std::min(is_long ? end + 1 : 2, rest.size()));
}

Point direction_of(const MText& text) {
  if (norm(text.direction) > 0) return text.direction;
  return ocs_to_world(text.normal).direction({std::cos(text.rotation), std::sin(text.rotation)});
}

std::vector<std::string> plain_lines(std::string_view rest) {
  std::vector<std::string> lines(1);
  while (!rest.empty()) {
    if (rest.front() == '\\') {
      take_code(rest, lines);
      continue;
    }
    if (rest.front() != '{' && rest.front() != '}') lines.back() += rest.front();
    rest.remove_prefix(1);
  }
  return lines;
}

}  // namespace

std::vector<Point> outline(const MText& text) {
  const std::vector<std::string> lines = plain_lines(text.text);
  double width = 0;
  for (const std::string& line : lines) {
    Text alone;
    alone.height = text.height;
    alone.text = line;
    width = std::max(width, measure(alone).width);
  }
  if (!(width > 0)) return {};
  const double height = text.height * (1 + line_spacing * static_cast<double>(lines.size() - 1));
  const std::int32_t place = std::clamp(text.attachment, 1, 9) - 1;
  const double left = -width * (place % 3) / 2, bottom = height * (place / 3) / 2 - height;
  const Point along = direction_of(text), up = cross(text.normal, along);
  const auto corner = [&](double x, double y) { return text.insertion + along * x + up * y; };
  return {corner(left, bottom), corner(left + width, bottom), corner(left + width, bottom + height),
          corner(left, bottom + height)};
}

Box extents(const MText& text) {
  Box box;
  for (const Point corner : outline(text)) box.add(corner);
  return box;
}

// A mirrored text stays readable: its letters are not mirrored.
void transform(MText& text, const Matrix& matrix) {
  const PlaneMap plane = plane_map(matrix, text.normal);
  const Point old = direction_of(text), along = matrix.direction(old);
  text.insertion = matrix(text.insertion);
  text.normal = plane.normal;
  text.height *= plane.stretch;
  text.width *= plane.stretch;
  if (!(norm(along) > 0) || along == old) return;
  text.direction = along * (1 / norm(along));
  if (plane.mirrored && dot(text.direction, old) < 0) text.direction = -text.direction;
  text.rotation = 0;
}

}  // namespace velmar::drawing
