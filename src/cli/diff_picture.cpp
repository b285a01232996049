#include "cli/diff_picture.h"

#include <algorithm>

#include "render/scene.h"
#include "render/units.h"

namespace velmar::cli {
namespace {

using drawing::Difference;
using drawing::SpaceId;
using render::Marks;

constexpr render::Color red{210, 0, 0}, green{0, 150, 0}, amber{235, 150, 0}, grey{185, 185, 185};

void mark(const drawing::Drawing& drawing, drawing::RecordId id, render::Color color,
          Marks& marks) {
  if (id == drawing::RecordId::none || drawing.record(id).space == drawing::SpaceId::none) return;
  const bool of_polyline = drawing.record(id).kind == drawing::Kind::vertex;
  marks.colors[of_polyline ? drawing.whole(id) : id] = color;
}

}  // namespace

std::vector<std::string> draw_differences(const drawing::Drawing& a, const drawing::Drawing& b,
                                          const drawing::Comparison& found,
                                          const PictureOptions& options) {
  const PictureFile file(options);
  Marks in_a, in_b;
  in_a.rest = in_b.rest = grey;
  for (const Difference& difference : found.differences) {
    if (!difference.name.empty()) continue;  // a row of a table
    if (difference.kind == Difference::Kind::removed) mark(a, difference.a, red, in_a);
    if (difference.kind == Difference::Kind::added) mark(b, difference.b, green, in_b);
    if (difference.kind == Difference::Kind::changed) mark(b, difference.b, amber, in_b);
  }
  render::Scene scene_a(a, file.settings(), &in_a), scene_b(b, file.settings(), &in_b);
  drawing::Box all = scene_a.extents(SpaceId::model);
  all.add(scene_b.extents(SpaceId::model));
  if (all.empty() && options.window.empty()) {
    throw drawing::Error("there is nothing to see in model space of either drawing");
  }
  const render::Frame frame = file.frame(all, render::millimetres_per_unit(b, SpaceId::model));
  file.write(frame, [&](render::Painter& painter) {
    const render::Canvas canvas(painter, frame.window(), frame.place);
    scene_b.draw(SpaceId::model, canvas);
    in_a.show = in_b.show = Marks::Show::marked;
    scene_a.draw(SpaceId::model, canvas);
    scene_b.draw(SpaceId::model, canvas);
  });
  std::vector<std::string> warnings = scene_a.warnings();
  for (std::string& warning : scene_b.warnings()) {
    if (std::ranges::count(warnings, warning) == 0) warnings.push_back(std::move(warning));
  }
  return warnings;
}

}  // namespace velmar::cli
