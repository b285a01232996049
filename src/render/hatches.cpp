#include "render/hatches.h"

#include <cmath>

#include "drawing/error.h"
#include "drawing/geometry/ocs.h"
#include "drawing/hatch_lines.h"

namespace velmar::render {
namespace {

using drawing::Hatch;

/// Lines nearer than this, in picture units, are a tint.
constexpr double nearest_lines = 1.2;
constexpr double tint_opacity = 0.4;
constexpr std::size_t most_lines_of_one = 400'000;

/// Loops that bound what the style fills; drawn so that overlaps of two are left out.
std::vector<Chain> filled_loops(const Hatch& hatch) {
  const std::vector<int> depths = loop_depths(hatch);
  const int deepest = hatch.style == Hatch::normal_style  ? 1 << 30
                      : hatch.style == Hatch::outer_style ? 1
                                                          : 0;
  std::vector<Chain> loops;
  for (std::size_t i = 0; i < hatch.loops.size(); ++i) {
    if (depths[i] <= deepest) loops.push_back(flatten(hatch.loops[i]));
  }
  return loops;
}

/// How far apart the lines of a family are.
double distance(const drawing::PatternLine& line) {
  return std::abs(line.offset.y * std::cos(line.angle) - line.offset.x * std::sin(line.angle));
}

/// What transparency and a gradient's colours make of the ink; both stand beside the fields of a
/// hatch.
Ink fill_ink(const std::vector<drawing::TagValue>& tags, bool gradient, Ink ink) {
  constexpr int transparency_code = 440, gradient_color_code = 421;
  constexpr std::int64_t opacity_given = 0x02000000, byte = 0xFF;
  int red = 0, green = 0, blue = 0, colors = 0;
  for (const drawing::TagValue& tag : tags) {
    const auto* const value = std::get_if<std::int64_t>(&tag.value);
    if (value == nullptr) continue;
    if (tag.code == transparency_code && (*value & opacity_given) != 0) {
      ink.opacity = static_cast<double>(*value & byte) / static_cast<double>(byte);
    }
    if (!gradient || tag.code != gradient_color_code) continue;
    red += static_cast<int>(*value >> 16 & byte);
    green += static_cast<int>(*value >> 8 & byte);
    blue += static_cast<int>(*value & byte);
    ++colors;
  }
  if (colors == 0) return ink;
  const auto mean = [&](int sum) { return static_cast<std::uint8_t>(sum / colors); };
  ink.color = {mean(red), mean(green), mean(blue)};
  return ink;
}

}  // namespace

void HatchDrawer::draw(drawing::RecordId id, const Hatch& hatch, const Canvas& canvas,
                       const Look& look) {
  const Canvas plane = canvas.within(drawing::ocs_to_world(hatch.normal) *
                                     drawing::translation({0, 0, hatch.elevation_point.z}));
  const std::vector<Chain> loops = filled_loops(hatch);
  Window seen;
  for (const Chain& loop : loops) {
    for (const Point& p : plane.mapped(loop)) seen.add(p);
  }
  if (!plane.shows(seen)) return;
  Look own = look;
  own.pattern = nullptr;
  const bool gradient = hatch.gradient != 0;
  own.ink = fill_ink(drawing_.tags(id), gradient && !settings_.is_tinted(), look.ink);
  if (hatch.is_solid() || gradient) return plane.area(loops, own.ink);
  if (draw_lines(hatch, plane, own)) return;
  own.ink.opacity *= tint_opacity;
  plane.area(loops, own.ink);
}

bool HatchDrawer::draw_lines(const Hatch& hatch, const Canvas& plane, const Look& look) {
  if (hatch.lines.empty()) return false;
  double widest = 0;
  for (const drawing::PatternLine& line : hatch.lines) widest = std::max(widest, distance(line));
  if (!(widest * plane.magnification() > nearest_lines)) return false;
  std::vector<drawing::HatchSegment> lines;
  try {
    lines = hatch_lines(hatch, std::min(most_lines_of_one, lines_left_));
  } catch (const drawing::Error&) {
    // What was tried in vain is work too, which many such hatches would add up to.
    lines_left_ -= std::min(lines_left_, most_lines_of_one / 20);
    ++too_dense_;
    return false;
  }
  lines_left_ -= lines.size();
  for (const drawing::HatchSegment& line : lines) {
    if (line.from == line.to) {
      plane.line({line.from}, look);
    } else {
      plane.line({line.from, line.to}, look);
    }
  }
  return true;
}

}  // namespace velmar::render
