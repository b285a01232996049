#include "embedded/picking.h"

#include <algorithm>
#include <optional>

#include "drawing/extents.h"
#include "embedded/plan_geometry.h"

namespace velmar::embedded {
namespace {

using drawing::Box;
using drawing::Drawing;
using drawing::Kind;
using drawing::Point;
using drawing::RecordId;
using drawing::SpaceId;

struct Shown {
  RecordId id;
  Box box;
};

/// Nothing also for an entity that cannot be read: it is no reason not to find the others.
std::optional<Box> readable_extents(const Drawing& drawing, RecordId id) {
  try {
    return extents(drawing, id);
  } catch (const drawing::Error&) {
    return std::nullopt;
  }
}

std::vector<Shown> all_shown(const Drawing& drawing, SpaceId space) {
  std::vector<Shown> shown;
  for (const RecordId id : drawing.entities(space)) {
    if (!is_visible(drawing, id)) continue;
    if (const auto box = readable_extents(drawing, id)) shown.push_back({id, *box});
  }
  return shown;
}

double pick_box_half(const std::vector<Shown>& shown) {
  constexpr double part_of_view = 0.005, least = 1e-6;
  Box all;
  for (const Shown& one : shown) all.add(one.box);
  if (all.empty()) return least;
  return std::max(part_of_view * std::max(all.max.x - all.min.x, all.max.y - all.min.y), least);
}

Box box_around(Point p, double half) {
  return {{p.x - half, p.y - half, p.z}, {p.x + half, p.y + half, p.z}};
}

bool overlap(const Box& a, const Box& b) {
  return a.min.x <= b.max.x && b.min.x <= a.max.x && a.min.y <= b.max.y && b.min.y <= a.max.y;
}

Box box_of(const Chain& chain) {
  Box box;
  for (const Point& point : chain) box.add(point);
  return box;
}

bool is_text(Kind kind) {
  return kind == Kind::text || kind == Kind::mtext || kind == Kind::attdef;
}

bool is_hit(const Drawing& drawing, RecordId id, Point point, double half) {
  const bool text = is_text(drawing.record(id).kind);
  return std::ranges::any_of(outlines(drawing, id), [&](const Chain& chain) {
    return plan_distance(chain, point) <= half || (text && encloses(chain, point));
  });
}

bool is_within(const Drawing& drawing, const Shown& entity, const Box& rectangle, Reach reach) {
  if (contains(rectangle, entity.box)) return true;
  if (reach == Reach::window || !overlap(rectangle, entity.box)) return false;
  return std::ranges::any_of(outlines(drawing, entity.id),
                             [&](const Chain& chain) { return touches(chain, rectangle); });
}

}  // namespace

bool is_visible(const Drawing& drawing, RecordId id) {
  const drawing::LayerId layer = drawing.record(id).layer;
  if (layer != drawing::LayerId::none) {
    const drawing::Layer& row = drawing.layer(layer);
    if (!row.on() || row.frozen()) return false;
  }
  try {
    return drawing.read_common(id).invisible == 0;
  } catch (const drawing::Error&) {
    return true;  // its values are damaged; the layer alone decides
  }
}

RecordId entity_at(const Drawing& drawing, SpaceId space, Point point) {
  const std::vector<Shown> shown = all_shown(drawing, space);
  const double half = pick_box_half(shown);
  const Box pick_box = box_around(point, half);
  const auto topmost = std::find_if(shown.rbegin(), shown.rend(), [&](const Shown& entity) {
    return overlap(pick_box, entity.box) && is_hit(drawing, entity.id, point, half);
  });
  return topmost == shown.rend() ? RecordId::none : topmost->id;
}

std::vector<RecordId> entities_within(const Drawing& drawing, SpaceId space,
                                      const std::pair<Point, Point>& corners, Reach reach) {
  Box rectangle;
  rectangle.add(corners.first);
  rectangle.add(corners.second);
  std::vector<RecordId> found;
  for (const Shown& entity : all_shown(drawing, space)) {
    if (is_within(drawing, entity, rectangle, reach)) found.push_back(entity.id);
  }
  return found;
}

std::vector<RecordId> entities_within(const Drawing& drawing, SpaceId space, const Chain& polygon,
                                      Reach reach) {
  Chain edge = polygon;
  edge.push_back(polygon.front());
  std::vector<RecordId> found;
  for (const Shown& entity : all_shown(drawing, space)) {
    if (!overlap(box_of(edge), entity.box)) continue;
    const std::vector<Chain> chains = outlines(drawing, entity.id);
    const auto is_inside = [&](const Chain& chain) {
      return !chain.empty() && encloses(polygon, chain.front()) && !cross(chain, edge);
    };
    const auto is_reached = [&](const Chain& chain) {
      return is_inside(chain) || cross(chain, edge);
    };
    const bool is_within =
        !chains.empty() && (reach == Reach::window ? std::ranges::all_of(chains, is_inside)
                                                   : std::ranges::any_of(chains, is_reached));
    if (is_within) found.push_back(entity.id);
  }
  return found;
}

std::vector<RecordId> entities_on_fence(const Drawing& drawing, SpaceId space, const Chain& fence) {
  std::vector<RecordId> found;
  for (const Shown& entity : all_shown(drawing, space)) {
    if (!overlap(box_of(fence), entity.box)) continue;
    const bool is_crossed = std::ranges::any_of(
        outlines(drawing, entity.id), [&](const Chain& chain) { return cross(chain, fence); });
    if (is_crossed) found.push_back(entity.id);
  }
  return found;
}

RecordId last_visible(const Drawing& drawing, SpaceId space) {
  const std::vector<RecordId> all = drawing.entities(space);
  const auto last =
      std::find_if(all.rbegin(), all.rend(), [&](RecordId id) { return is_visible(drawing, id); });
  return last == all.rend() ? RecordId::none : *last;
}

}  // namespace velmar::embedded
