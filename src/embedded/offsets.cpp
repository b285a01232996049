#include <array>

#include "drawing/geometry/parallel.h"
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

bool offset(drawing::LwPolyline& polyline, double distance) {
  auto beside = drawing::parallel(polyline.vertices, polyline.closed(), distance);
  if (!beside) return false;
  polyline.vertices = std::move(*beside);
  return true;
}

/// Of a fitted curve what is drawn; the new one is plain.
bool offset(drawing::Polyline& polyline, double distance) {
  const auto beside = drawing::parallel(curve(polyline), polyline.closed(), distance);
  if (!beside) return false;
  constexpr std::int32_t fitted =
      drawing::Polyline::curve_fit_flag | drawing::Polyline::spline_fit_flag;
  polyline.flags &= ~fitted;
  polyline.curve_type = 0;
  polyline.start_width = polyline.end_width = 0;
  polyline.vertices.clear();
  for (const drawing::BulgeVertex& vertex : *beside) {
    polyline.vertices.push_back({.position = {vertex.x, vertex.y, polyline.elevation_point.z},
                                 .start_width = vertex.start_width,
                                 .end_width = vertex.end_width,
                                 .bulge = vertex.bulge});
  }
  return true;
}

bool offset_body(Body& body, double distance, const std::string& kind) {
  if (auto* line = std::get_if<drawing::Line>(&body)) return offset(*line, distance);
  if (auto* arc = std::get_if<drawing::Arc>(&body)) return offset_radius(*arc, distance);
  if (auto* circle = std::get_if<drawing::Circle>(&body)) return offset_radius(*circle, distance);
  if (auto* light = std::get_if<drawing::LwPolyline>(&body)) return offset(*light, distance);
  auto* heavy = std::get_if<drawing::Polyline>(&body);
  if (heavy && heavy->is_2d()) return offset(*heavy, distance);
  const bool is_ellipse = std::holds_alternative<drawing::Ellipse>(body);
  throw not_supported("Offset of " + (is_ellipse ? kind + ", which is a spline," : "3D " + kind));
}

Value offset_entity(EntityObject& entity, Arguments& arguments) {
  const double distance = arguments.number(0);
  if (distance == 0) throw failure(HostError::invalid_input);
  drawing::Entity moved = entity.drawing().read(entity.id());
  if (!offset_body(moved.body, distance, entity.kind())) throw failure(HostError::invalid_input);
  const auto added = entity.drawing().add(entity.record().space, moved);
  return basic::List{make_entity(entity.document(), added)};
}

constexpr std::array offset_rows{
    EntityMethod{Member::Offset, Effect::reads, 1, 1, offset_entity},
};

}  // namespace

std::span<const EntityMethod> offset_methods() { return offset_rows; }

}  // namespace velmar::embedded
