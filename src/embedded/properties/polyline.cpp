#include <array>

#include "basic/conversion.h"
#include "embedded/errors.h"
#include "embedded/properties/checks.h"
#include "embedded/properties/kinds.h"

namespace velmar::embedded {
namespace {

using drawing::Point;
using drawing::Polyline;
using drawing::PolylineVertex;

/// The vertices that callers see, by position: those of the drawn curve, without a spline's frame.
std::vector<std::size_t> shown(const Polyline& polyline) {
  std::vector<std::size_t> places;
  for (std::size_t i = 0; i < polyline.vertices.size(); ++i) {
    const bool is_frame = (polyline.vertices[i].flags & PolylineVertex::spline_frame_flag) != 0;
    if (!is_frame) places.push_back(i);
  }
  return places;
}

/// Where a vertex is: the z of a 2D polyline is its elevation.
Point position(const Polyline& polyline, std::size_t place) {
  Point at = polyline.vertices[place].position;
  if (polyline.is_2d()) at.z = polyline.elevation_point.z;
  return at;
}

/// Kept: the z given for a vertex of a 2D polyline means nothing.
void move_vertex(Polyline& polyline, std::size_t place, Point to) {
  if (polyline.is_2d()) to.z = polyline.vertices[place].position.z;
  polyline.vertices[place].position = to;
}

PolylineVertex& vertex(Polyline& polyline, const Arguments& arguments) {
  const std::vector<std::size_t> places = shown(polyline);
  return polyline.vertices[places[arguments.index(0, places.size())]];
}

void require_2d(const Polyline& polyline, Member member) {
  if (!polyline.is_2d()) throw no_such_member(member);
}

Value coordinates(const Polyline& polyline) {
  basic::Doubles numbers;
  for (const std::size_t place : shown(polyline)) {
    const Point at = position(polyline, place);
    numbers.insert(numbers.end(), {at.x, at.y, at.z});
  }
  return numbers;
}

void put_coordinates(Polyline& polyline, const Value& value) {
  Value content = value;
  const Arguments arguments(Member::Coordinates, {&content, 1}, 1, 1);
  const basic::Doubles& numbers = arguments.numbers(0, "Coordinates");
  const std::vector<std::size_t> places = shown(polyline);
  if (numbers.size() != 3 * places.size()) throw failure(HostError::wrong_element_count);
  for (std::size_t i = 0; i < places.size(); ++i) {
    move_vertex(polyline, places[i], {numbers[3 * i], numbers[3 * i + 1], numbers[3 * i + 2]});
  }
}

void put_closed(Polyline& polyline, const Value& value) {
  constexpr std::int32_t closed = Polyline::closed_flag;
  polyline.flags = basic::convert<bool>(value) ? polyline.flags | closed : polyline.flags & ~closed;
}

Value elevation(const Polyline& polyline) {
  require_2d(polyline, Member::Elevation);
  return polyline.elevation_point.z;
}

void put_elevation(Polyline& polyline, const Value& value) {
  require_2d(polyline, Member::Elevation);
  const double z = to_number(value);
  polyline.elevation_point.z = z;
  for (PolylineVertex& each : polyline.vertices) each.position.z = z;
}

/// AcPolylineType and Ac3DPolylineType: a 3D polyline has no fitted arcs, so its splines count from
/// 1.
std::int32_t type(const Polyline& polyline) {
  constexpr std::int32_t quadratic = 5, cubic = 6;
  const std::int32_t before_splines = polyline.is_2d() ? 1 : 0;
  if (polyline.curve_type == quadratic) return before_splines + 1;
  if (polyline.curve_type == cubic) return before_splines + 2;
  return (polyline.flags & Polyline::curve_fit_flag) != 0 ? 1 : 0;
}

void put_type(Polyline& polyline, const Value& value) {
  if (basic::convert<std::int32_t>(value) != type(polyline)) {
    throw not_supported("Fitting another curve to a POLYLINE");
  }
}

Value constant_width(const Polyline& polyline) {
  require_2d(polyline, Member::ConstantWidth);
  const double width =
      polyline.vertices.empty() ? polyline.start_width : polyline.vertices.front().start_width;
  for (const PolylineVertex& each : polyline.vertices) {
    if (each.start_width != width || each.end_width != width) {
      throw failure(HostError::invalid_input);
    }
  }
  return width;
}

void put_constant_width(Polyline& polyline, const Value& value) {
  require_2d(polyline, Member::ConstantWidth);
  const double width = checked_number(Member::ConstantWidth, value);
  polyline.start_width = polyline.end_width = width;
  for (PolylineVertex& each : polyline.vertices) each.start_width = each.end_width = width;
}

Value append_vertex(Polyline& polyline, Arguments& arguments) {
  PolylineVertex added;
  added.position = arguments.point(0, "Vertex");
  if (polyline.is_2d()) {
    added.position.z = polyline.elevation_point.z;
    added.start_width = polyline.start_width;
    added.end_width = polyline.end_width;
  } else if (!polyline.vertices.empty()) {
    added.flags = polyline.vertices.back().flags;
  }
  polyline.vertices.push_back(added);
  return {};
}

Value coordinate(Polyline& polyline, Arguments& arguments) {
  const std::vector<std::size_t> places = shown(polyline);
  return to_value(position(polyline, places[arguments.index(0, places.size())]));
}

Value put_coordinate(Polyline& polyline, Arguments& arguments) {
  const std::vector<std::size_t> places = shown(polyline);
  const std::size_t place = places[arguments.index(0, places.size())];
  move_vertex(polyline, place, arguments.point(1, "Coordinate"));
  return {};
}

Value get_bulge(Polyline& polyline, Arguments& arguments) {
  require_2d(polyline, arguments.method());
  return vertex(polyline, arguments).bulge;
}

Value set_bulge(Polyline& polyline, Arguments& arguments) {
  require_2d(polyline, arguments.method());
  vertex(polyline, arguments).bulge = arguments.number(1);
  return {};
}

Value get_width(Polyline& polyline, Arguments& arguments) {
  require_2d(polyline, arguments.method());
  const PolylineVertex& at = vertex(polyline, arguments);
  arguments.give(1, at.start_width);
  arguments.give(2, at.end_width);
  return {};
}

Value set_width(Polyline& polyline, Arguments& arguments) {
  require_2d(polyline, arguments.method());
  PolylineVertex& at = vertex(polyline, arguments);
  at.start_width = checked_number(Member::ConstantWidth, arguments[1]);
  at.end_width = checked_number(Member::ConstantWidth, arguments[2]);
  return {};
}

constexpr std::array polyline_properties{
    Property<Polyline>{Member::Coordinates, coordinates, put_coordinates},
    Property<Polyline>{Member::Closed,
                       [](const Polyline& polyline) -> Value { return polyline.closed(); },
                       put_closed},
    Property<Polyline>{Member::Elevation, elevation, put_elevation},
    Property<Polyline>{Member::ConstantWidth, constant_width, put_constant_width},
    Property<Polyline>{Member::Type,
                       [](const Polyline& polyline) -> Value { return type(polyline); }, put_type},
    Property<Polyline>{Member::Area,
                       [](const Polyline& polyline) -> Value { return area(polyline); }},
    Property<Polyline>{Member::Length,
                       [](const Polyline& polyline) -> Value { return length(polyline); }},
};

constexpr std::array polyline_methods{
    Method<Polyline>{Member::AppendVertex, Effect::changes, 1, 1, append_vertex},
    Method<Polyline>{Member::Coordinate, Effect::reads, 1, 1, coordinate},
    Method<Polyline>{Member::Coordinate, Effect::changes, 2, 2, put_coordinate},
    Method<Polyline>{Member::GetBulge, Effect::reads, 1, 1, get_bulge},
    Method<Polyline>{Member::SetBulge, Effect::changes, 2, 2, set_bulge},
    Method<Polyline>{Member::GetWidth, Effect::reads, 3, 3, get_width},
    Method<Polyline>{Member::SetWidth, Effect::changes, 3, 3, set_width},
};

}  // namespace

std::span<const Property<Polyline>> properties(const Polyline&) { return polyline_properties; }
std::span<const Method<Polyline>> methods(const Polyline&) { return polyline_methods; }

bool hides(const Polyline& polyline, Member member) {
  const bool is_mesh = (polyline.flags & (Polyline::mesh_flag | Polyline::polyface_flag)) != 0;
  switch (member) {
    case Member::Thickness:
    case Member::Normal:
      return !polyline.is_2d();
    case Member::Area:
    case Member::Length:
    case Member::Closed:
    case Member::Type:
      return is_mesh;
    default:
      return false;
  }
}

}  // namespace velmar::embedded
