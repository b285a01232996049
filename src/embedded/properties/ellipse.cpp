#include <array>
#include <cmath>

#include "embedded/errors.h"
#include "embedded/properties/checks.h"
#include "embedded/properties/kinds.h"

namespace velmar::embedded {
namespace {

using drawing::Ellipse;
using drawing::Point;

double major_radius(const Ellipse& ellipse) { return norm(ellipse.major_axis); }
double minor_radius(const Ellipse& ellipse) { return norm(minor_axis(ellipse)); }

/// The major axis stands on the normal.
void put_major_axis(Ellipse& ellipse, const Value& value) {
  const Point axis = to_point(value, "MajorAxis", Member::MajorAxis);
  const double size = norm(axis) * norm(ellipse.normal);
  if (!(size > 0) || std::abs(dot(axis, ellipse.normal)) > 1e-9 * size) {
    throw failure(HostError::invalid_input);
  }
  ellipse.major_axis = axis;
}

void put_radii(Ellipse& ellipse, double major, double minor) {
  if (!(major > 0)) throw failure(HostError::invalid_input);
  const double ratio = checked_number(Member::RadiusRatio, minor / major);
  ellipse.major_axis = ellipse.major_axis * (major / major_radius(ellipse));
  ellipse.ratio = ratio;
}

constexpr std::array ellipse_rows{
    Property<Ellipse>{Member::MajorAxis,
                      [](const Ellipse& ellipse) -> Value { return to_value(ellipse.major_axis); },
                      put_major_axis},
    Property<Ellipse>{
        Member::MinorAxis,
        [](const Ellipse& ellipse) -> Value { return to_value(minor_axis(ellipse)); }},
    Property<Ellipse>{Member::MajorRadius,
                      [](const Ellipse& ellipse) -> Value { return major_radius(ellipse); },
                      [](Ellipse& ellipse, const Value& value) {
                        put_radii(ellipse, to_number(value), minor_radius(ellipse));
                      }},
    Property<Ellipse>{Member::MinorRadius,
                      [](const Ellipse& ellipse) -> Value { return minor_radius(ellipse); },
                      [](Ellipse& ellipse, const Value& value) {
                        put_radii(ellipse, major_radius(ellipse), to_number(value));
                      }},
    Property<Ellipse>{Member::StartAngle,
                      [](const Ellipse& ellipse) -> Value {
                        return angle_of_parameter(ellipse, ellipse.start_parameter);
                      },
                      [](Ellipse& ellipse, const Value& value) {
                        ellipse.start_parameter = parameter_of_angle(ellipse, to_number(value));
                      }},
    Property<Ellipse>{Member::EndAngle,
                      [](const Ellipse& ellipse) -> Value {
                        return angle_of_parameter(ellipse, ellipse.end_parameter);
                      },
                      [](Ellipse& ellipse, const Value& value) {
                        ellipse.end_parameter = parameter_of_angle(ellipse, to_number(value));
                      }},
    Property<Ellipse>{Member::StartPoint,
                      [](const Ellipse& ellipse) -> Value {
                        return to_value(point_at(ellipse, ellipse.start_parameter));
                      }},
    Property<Ellipse>{Member::EndPoint,
                      [](const Ellipse& ellipse) -> Value {
                        return to_value(point_at(ellipse, ellipse.end_parameter));
                      }},
    Property<Ellipse>{Member::Area, [](const Ellipse& ellipse) -> Value { return area(ellipse); }},
};

}  // namespace

std::span<const Property<Ellipse>> properties(const Ellipse&) { return ellipse_rows; }

}  // namespace velmar::embedded
