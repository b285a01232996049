// What a scene draws through something else: block references, dimensions, viewports.

#include <algorithm>

#include "drawing/dimension/drawn_block.h"
#include "drawing/geometry/ocs.h"
#include "render/draw_order.h"
#include "render/scene.h"

namespace velmar::render {
namespace {

using drawing::RecordId;
using drawing::SpaceId;

}  // namespace

void Scene::draw_reference(const drawing::Insert& insert, const Place& place,
                           const Setting& setting) {
  const auto block = shown_block(drawing_, insert.block);
  if (!block || !may_enter(*block, place)) return;
  const drawing::Box box = sizes_.reference_box(insert);
  const Window seen = window_of(place.canvas.mapped(corners(box)));
  if (!box.empty() && !place.canvas.shows(seen)) return;
  within_.push_back(*block);
  draw_cells(insert, *block, place, setting);
  within_.pop_back();
}

/// A block within itself would be drawn without end.
bool Scene::may_enter(SpaceId block, const Place& place) {
  const bool enters = place.depth < deepest_nesting && std::ranges::count(within_, block) == 0;
  too_deep_ = too_deep_ || !enters;
  return enters;
}

/// In each cell of an array, though the file gives them for the first one alone.
void Scene::draw_attributes(RecordId id, const drawing::Insert& insert, const Place& place,
                            const Setting& setting) {
  const std::vector<RecordId> attributes = drawing_.parts(id);
  const Point first = placement(insert, Point{})(Point{});
  for (int row = 0; row < std::max(insert.rows, 1); ++row) {
    for (int column = 0; column < std::max(insert.columns, 1); ++column) {
      if (attributes.empty() || too_many_) return;
      const Point shift = placement(insert, Point{}, column, row)(Point{}) - first;
      draw_entities(attributes, place.within(drawing::translation(shift), setting));
    }
  }
}

void Scene::draw_cells(const drawing::Insert& insert, SpaceId block, const Place& place,
                       const Setting& setting) {
  const drawing::Space& space = drawing_.spaces()[index(block)];
  std::optional<std::vector<RecordId>> content;  // only where a cell is large enough to see
  const bool bounded = !sizes_.block_box(block).empty();
  const std::vector<Point> box = corners(sizes_.block_box(block));
  for (int row = 0; row < std::max(insert.rows, 1); ++row) {
    for (int column = 0; column < std::max(insert.columns, 1); ++column) {
      if (++visits_ > most_visits_) {
        too_many_ = true;
        return;
      }
      const Place inner = place.within(placement(insert, space.base, column, row), setting);
      const Window seen = window_of(inner.canvas.mapped(box));
      if (bounded && !inner.canvas.shows(seen)) continue;
      if (bounded && seen.width() < 1 && seen.height() < 1) {
        place.canvas.line({placement(insert, space.base, column, row)(space.base)},
                          settings_.look(setting, 1));
      } else {
        if (!content) content = draw_order(drawing_, block);
        draw_entities(*content, inner);
      }
    }
  }
}

void Scene::draw_dimension(RecordId id, const drawing::Dimension& dimension, const Place& place,
                           const Setting& setting) {
  const Point offset = drawing::ocs_to_world(dimension.normal).direction(dimension.block_offset);
  Place inner = place.within(drawing::translation(offset), setting);
  inner.points = PointStyle{};  // dots, whatever the drawing says of points
  if (const auto block = shown_block(drawing_, dimension.block)) {
    if (!may_enter(*block, place)) return;
    within_.push_back(*block);
    draw_entities(drawing_.entities(*block), inner);
    return within_.pop_back();
  }
  const drawing::Record record = drawing_.record(id);
  for (const drawing::Entity& part : drawing::drawn_content(drawing_, id)) {
    const Setting own = settings_.of(record, part.common, inner.outer);
    draw_body(id, part.body, inner, settings_.look(own, place.pattern_scale));
  }
}

void Scene::draw_viewport(RecordId id, Place& place) {
  const auto viewport = read_viewport(drawing_, id);
  if (!viewport || place.depth > 0) return;
  const drawing::Common common = drawing_.read_common(id);
  const Setting setting = settings_.of(drawing_.record(id), common, place.outer);
  const Chain border = place.canvas.mapped(viewport->border);
  const Window seen = window_of(border);
  if (viewport->on && viewport->scale() > 0 && place.canvas.shows(seen)) {
    place.canvas.painter().push_clip({border});
    Place inner{place.canvas.cut_to(seen).within(viewport->place()), settings_.outermost()};
    inner.frozen = &viewport->frozen;
    inner.mark = place.mark;
    inner.points = points_;
    if (patterns_on_paper_) inner.pattern_scale = 1 / viewport->scale();
    draw_entities(draw_order(drawing_, SpaceId::model), inner);
    place.canvas.painter().pop_clip();
  }
  takes_mark(id, place);
  Chain frame = viewport->border;
  frame.push_back(Point(frame.front()));
  place.canvas.line(frame, settings_.look(setting, 1));
}

}  // namespace velmar::render
