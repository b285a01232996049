#include <array>

#include "embedded/entity_members.h"
#include "embedded/errors.h"

namespace velmar::embedded {
namespace {

using drawing::Body;
using drawing::Point;

/// To the right of its way, seen against the normal; a line along the normal has no side.
bool offset(drawing::Line& line, double distance) {
  const Point side = cross(line.end - line.start, line.normal);
  if (!(norm(side) > 0)) return false;
  const Point step = side * (distance / norm(side));
  line.start = line.start + step;
  line.end = line.end + step;
  return true;
}

/// Outward; inward by less than the radius.
template <class Round>
bool offset_radius(Round& round, double distance) {
  round.radius += distance;
  return round.radius > 0;
}

bool offset_body(Body& body, double distance, const std::string& kind) {
  if (auto* line = std::get_if<drawing::Line>(&body)) return offset(*line, distance);
  if (auto* arc = std::get_if<drawing::Arc>(&body)) return offset_radius(*arc, distance);
  if (auto* circle = std::get_if<drawing::Circle>(&body)) return offset_radius(*circle, distance);
  throw not_supported("Offset of " + kind);
}

Value offset_entity(EntityObject& entity, Arguments& arguments) {
  const double distance = arguments.number(0);
  if (distance == 0) throw failure(HostError::invalid_input);
  drawing::Entity moved = entity.drawing().read(entity.id());
  if (!offset_body(moved.body, distance, entity.kind())) throw failure(HostError::invalid_input);
  const auto added = entity.drawing().add(entity.record().space, moved);
  return basic::List{make_entity(entity.document(), added)};
}

constexpr std::array rows{
    EntityMethod{Member::Offset, Effect::reads, 1, 1, offset_entity},
};

}  // namespace

std::span<const EntityMethod> offset_methods() { return rows; }

}  // namespace velmar::embedded
