#include <array>

#include "drawing/geometry/ocs.h"
#include "embedded/errors.h"
#include "embedded/properties/kinds.h"

namespace velmar::embedded {
namespace {

using drawing::Point;
using drawing::Ray;
using drawing::Xline;

void point_along(Ray& ray, Point direction) {
  if (!(norm(direction) > 0)) throw failure(HostError::invalid_input);
  ray.direction = drawing::unit_normal(direction);
}

Value direction(const Ray& ray) { return to_value(ray.direction); }

void put_direction(Ray& ray, const Value& value) {
  point_along(ray, to_point(value, "DirectionVector", Member::DirectionVector));
}

Value second_point(const Ray& ray) { return to_value(ray.base + ray.direction); }

void put_second_point(Ray& ray, const Value& value) {
  point_along(ray, to_point(value, "SecondPoint", Member::SecondPoint) - ray.base);
}

template <class Kind>
constexpr std::array ray_rows{
    Property<Kind>{Member::DirectionVector, [](const Kind& line) { return direction(line); },
                   [](Kind& line, const Value& value) { put_direction(line, value); }},
    Property<Kind>{Member::SecondPoint, [](const Kind& line) { return second_point(line); },
                   [](Kind& line, const Value& value) { put_second_point(line, value); }},
};

}  // namespace

std::span<const Property<Ray>> properties(const Ray&) { return ray_rows<Ray>; }
std::span<const Property<Xline>> properties(const Xline&) { return ray_rows<Xline>; }

}  // namespace velmar::embedded
