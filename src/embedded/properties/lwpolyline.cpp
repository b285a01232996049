#include <array>

#include "basic/conversion.h"
#include "embedded/errors.h"
#include "embedded/properties/checks.h"
#include "embedded/properties/kinds.h"

namespace velmar::embedded {
namespace {

using drawing::BulgeVertex;
using drawing::LwPolyline;

Value coordinates(const LwPolyline& polyline) {
  basic::Doubles numbers;
  numbers.reserve(2 * polyline.vertices.size());
  for (const BulgeVertex& vertex : polyline.vertices) {
    numbers.push_back(vertex.x);
    numbers.push_back(vertex.y);
  }
  return numbers;
}

void put_coordinates(LwPolyline& polyline, const Value& value) {
  Value content = value;
  const Arguments arguments(Member::Coordinates, {&content, 1}, 1, 1);
  const basic::Doubles& numbers = arguments.numbers(0, "Coordinates");
  if (numbers.size() != 2 * polyline.vertices.size()) {
    throw failure(HostError::wrong_element_count);
  }
  for (std::size_t i = 0; i < polyline.vertices.size(); ++i) {
    polyline.vertices[i].x = numbers[2 * i];
    polyline.vertices[i].y = numbers[2 * i + 1];
  }
}

void put_closed(LwPolyline& polyline, const Value& value) {
  constexpr std::int32_t closed = LwPolyline::closed_flag;
  polyline.flags = basic::convert<bool>(value) ? polyline.flags | closed : polyline.flags & ~closed;
}

/// Widths stand either at the polyline, for all segments, or at the vertices.
void spread_width(LwPolyline& polyline) {
  if (polyline.constant_width == 0) return;
  for (BulgeVertex& vertex : polyline.vertices) {
    vertex.start_width = vertex.end_width = polyline.constant_width;
  }
  polyline.constant_width = 0;
}

Value constant_width(const LwPolyline& polyline) {
  if (polyline.constant_width != 0 || polyline.vertices.empty()) return polyline.constant_width;
  const double width = polyline.vertices.front().start_width;
  for (const BulgeVertex& vertex : polyline.vertices) {
    if (vertex.start_width != width || vertex.end_width != width) {
      throw failure(HostError::invalid_input);
    }
  }
  return width;
}

void put_constant_width(LwPolyline& polyline, const Value& value) {
  polyline.constant_width = checked_number(Member::ConstantWidth, value);
  for (BulgeVertex& vertex : polyline.vertices) vertex.start_width = vertex.end_width = 0;
}

BulgeVertex vertex_at(const basic::Doubles& numbers) {
  if (numbers.size() != 2) throw failure(HostError::wrong_element_count);
  BulgeVertex vertex;
  vertex.x = numbers[0];
  vertex.y = numbers[1];
  return vertex;
}

Value add_vertex(LwPolyline& polyline, Arguments& arguments) {
  const std::size_t at = arguments.index(0, polyline.vertices.size() + 1);
  const BulgeVertex vertex = vertex_at(arguments.numbers(1, "Vertex"));
  polyline.vertices.insert(polyline.vertices.begin() + static_cast<std::ptrdiff_t>(at), vertex);
  return {};
}

Value coordinate(LwPolyline& polyline, Arguments& arguments) {
  const BulgeVertex& vertex = polyline.vertices[arguments.index(0, polyline.vertices.size())];
  return basic::Doubles{vertex.x, vertex.y};
}

Value put_coordinate(LwPolyline& polyline, Arguments& arguments) {
  BulgeVertex& vertex = polyline.vertices[arguments.index(0, polyline.vertices.size())];
  const BulgeVertex place = vertex_at(arguments.numbers(1, "Coordinate"));
  vertex.x = place.x;
  vertex.y = place.y;
  return {};
}

Value get_bulge(LwPolyline& polyline, Arguments& arguments) {
  return polyline.vertices[arguments.index(0, polyline.vertices.size())].bulge;
}

Value set_bulge(LwPolyline& polyline, Arguments& arguments) {
  const std::size_t at = arguments.index(0, polyline.vertices.size());
  polyline.vertices[at].bulge = arguments.number(1);
  return {};
}

Value get_width(LwPolyline& polyline, Arguments& arguments) {
  const BulgeVertex& vertex = polyline.vertices[arguments.index(0, polyline.vertices.size())];
  const bool one_width = polyline.constant_width != 0;
  arguments.give(1, one_width ? polyline.constant_width : vertex.start_width);
  arguments.give(2, one_width ? polyline.constant_width : vertex.end_width);
  return {};
}

Value set_width(LwPolyline& polyline, Arguments& arguments) {
  const std::size_t at = arguments.index(0, polyline.vertices.size());
  const double start = checked_number(Member::ConstantWidth, arguments[1]);
  const double end = checked_number(Member::ConstantWidth, arguments[2]);
  spread_width(polyline);
  polyline.vertices[at].start_width = start;
  polyline.vertices[at].end_width = end;
  return {};
}

constexpr std::array lwpolyline_properties{
    Property<LwPolyline>{Member::Coordinates, coordinates, put_coordinates},
    Property<LwPolyline>{Member::Closed,
                         [](const LwPolyline& polyline) -> Value { return polyline.closed(); },
                         put_closed},
    Property<LwPolyline>{Member::ConstantWidth, constant_width, put_constant_width},
    Property<LwPolyline>{Member::Area,
                         [](const LwPolyline& polyline) -> Value { return area(polyline); }},
    Property<LwPolyline>{Member::Length,
                         [](const LwPolyline& polyline) -> Value { return length(polyline); }},
};

constexpr std::array lwpolyline_methods{
    Method<LwPolyline>{Member::AddVertex, Effect::changes, 2, 2, add_vertex},
    Method<LwPolyline>{Member::Coordinate, Effect::reads, 1, 1, coordinate},
    Method<LwPolyline>{Member::Coordinate, Effect::changes, 2, 2, put_coordinate},
    Method<LwPolyline>{Member::GetBulge, Effect::reads, 1, 1, get_bulge},
    Method<LwPolyline>{Member::SetBulge, Effect::changes, 2, 2, set_bulge},
    Method<LwPolyline>{Member::GetWidth, Effect::reads, 3, 3, get_width},
    Method<LwPolyline>{Member::SetWidth, Effect::changes, 3, 3, set_width},
};

}  // namespace

std::span<const Property<LwPolyline>> properties(const LwPolyline&) {
  return lwpolyline_properties;
}
std::span<const Method<LwPolyline>> methods(const LwPolyline&) { return lwpolyline_methods; }

}  // namespace velmar::embedded
