#include <array>

#include "drawing/geometry/ocs.h"
#include "embedded/properties/kinds.h"
#include "embedded/properties/point_list.h"

// Kinds that are a list of points: solids, traces, faces by their four corners, leaders by their
// vertices. Points are in world coordinates.

namespace velmar::embedded {
namespace {

using drawing::Face;
using drawing::Leader;
using drawing::Point;
using drawing::Solid;
using drawing::Trace;

std::vector<Point> points_of(const Solid& solid) {
  const auto corners = world_corners(solid);
  return {corners.begin(), corners.end()};
}
std::vector<Point> points_of(const Face& face) {
  return {face.corners.begin(), face.corners.end()};
}
std::vector<Point> points_of(const Leader& leader) { return leader.vertices; }

void place_point(Solid& solid, std::size_t i, Point to) {
  solid.corners[i] = drawing::world_to_ocs(solid.normal)(to);
}
void place_point(Face& face, std::size_t i, Point to) { face.corners[i] = to; }
void place_point(Leader& leader, std::size_t i, Point to) { leader.vertices[i] = to; }

template <class Kind>
Value coordinates(const Kind& kind) {
  return to_value(points_of(kind));
}

template <class Kind>
void put_coordinates(Kind& kind, const Value& value) {
  const auto points = to_points(value, points_of(kind).size(), Member::Coordinates);
  for (std::size_t i = 0; i < points.size(); ++i) place_point(kind, i, points[i]);
}

template <class Kind>
Value coordinate(Kind& kind, Arguments& arguments) {
  const std::vector<Point> points = points_of(kind);
  return to_value(points[arguments.index(0, points.size())]);
}

template <class Kind>
Value put_coordinate(Kind& kind, Arguments& arguments) {
  const std::size_t at = arguments.index(0, points_of(kind).size());
  place_point(kind, at, arguments.point(1, "Coordinate"));
  return {};
}

template <class Kind>
constexpr std::array corner_properties{
    Property<Kind>{Member::Coordinates, coordinates<Kind>, put_coordinates<Kind>},
};
template <class Kind>
constexpr std::array corner_methods{
    Method<Kind>{Member::Coordinate, Effect::reads, 1, 1, coordinate<Kind>},
    Method<Kind>{Member::Coordinate, Effect::changes, 2, 2, put_coordinate<Kind>},
};

}  // namespace

std::span<const Property<Solid>> properties(const Solid&) { return corner_properties<Solid>; }
std::span<const Property<Trace>> properties(const Trace&) { return corner_properties<Trace>; }
std::span<const Property<Face>> properties(const Face&) { return corner_properties<Face>; }
std::span<const Property<Leader>> properties(const Leader&) { return corner_properties<Leader>; }
std::span<const Method<Solid>> methods(const Solid&) { return corner_methods<Solid>; }
std::span<const Method<Trace>> methods(const Trace&) { return corner_methods<Trace>; }
std::span<const Method<Face>> methods(const Face&) { return corner_methods<Face>; }
std::span<const Method<Leader>> methods(const Leader&) { return corner_methods<Leader>; }

}  // namespace velmar::embedded
