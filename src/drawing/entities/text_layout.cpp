#include "drawing/entities/text_layout.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "drawing/entities/percent_codes.h"
#include "drawing/entities/text_size.h"
#include "drawing/fonts/line_measure.h"
#include "drawing/fonts/stroke_font.h"
#include "drawing/geometry/ocs.h"

namespace velmar::drawing {
namespace {

template <class Add>
void each_point(const TextLayout& layout, Add add) {
  for (const TextRun& run : layout.runs) {
    if (const auto corners = outline(run)) std::ranges::for_each(*corners, add);
  }
  for (const auto& [from, to] : layout.bars) {
    add(from);
    add(to);
  }
}

/// Cuts the text where a code switches a line on or off.
void add_runs(const Text& text, TextRun run, std::vector<TextRun>& runs) {
  const auto finish = [&] {
    if (run.text.empty()) return;
    const double advance = measure_line(*run.font, run.text).advance;
    runs.push_back(run);
    run.origin.x += advance * run.height * run.width_factor;
    run.text.clear();
  };
  for (std::string_view rest = text.text; !rest.empty();) {
    const auto code = percent_code(rest);
    if (code && code->switches != 0) {
      finish();
      if (code->switches == 'u') run.underline = !run.underline;
      if (code->switches == 'o') run.overline = !run.overline;
      if (code->switches == 'k') run.strike = !run.strike;
    }
    run.text += code ? std::string_view(code->drawn) : rest.substr(0, 1);
    rest.remove_prefix(code ? code->size : 1);
  }
  finish();
}

}  // namespace

TextLayout layout(const Text& given) {
  const Text text = stretched(given);
  TextRun run;
  run.font = text.font ? text.font : stroke_font();
  run.height = text.height;
  run.width_factor = text.width_factor;
  run.oblique = text.oblique;
  TextLayout made;
  add_runs(text, run, made.runs);
  made.world = ocs_to_world(text.normal) * text_plane(text);
  return made;
}

std::optional<std::vector<Point>> outline(const TextRun& run) {
  const LineMeasure line = measure_line(*run.font, run.text, run.tracking);
  if (!line.drawn) return std::nullopt;
  // A line of a stroke font counts as high as a capital, whatever stands on it.
  const double top = run.font->aligns_by_advance() ? line.top : std::max(line.top, 1.0);
  constexpr double steepest = 85 * std::numbers::pi / 180;
  const double lean = std::tan(std::clamp(run.oblique, -steepest, steepest));
  const auto corner = [&](double x, double y) {
    return run.origin + Point{(x * run.width_factor + lean * y) * run.height, y * run.height, 0};
  };
  return std::vector<Point>{corner(line.left, -line.bottom), corner(line.right, -line.bottom),
                            corner(line.right, top), corner(line.left, top)};
}

Box plane_extents(const TextLayout& layout) {
  Box box;
  each_point(layout, [&](Point point) { box.add(point); });
  return box;
}

std::vector<Point> outline(const TextLayout& layout) {
  const Box box = plane_extents(layout);
  if (box.empty()) return {};
  return {layout.world(box.min), layout.world({box.max.x, box.min.y, 0}), layout.world(box.max),
          layout.world({box.min.x, box.max.y, 0})};
}

Box extents(const TextLayout& layout) {
  Box box;
  each_point(layout, [&](Point point) { box.add(layout.world(point)); });
  return box;
}

}  // namespace velmar::drawing
