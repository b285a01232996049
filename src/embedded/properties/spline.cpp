#include <array>

#include "embedded/errors.h"
#include "embedded/properties/kinds.h"
#include "embedded/properties/point_list.h"

namespace velmar::embedded {
namespace {

using drawing::Point;
using drawing::Spline;

std::int32_t count(const std::vector<Point>& points) {
  return static_cast<std::int32_t>(points.size());
}

/// What a spline was drawn through means nothing once its control points are moved.
void forget_fit_points(Spline& spline) {
  spline.fit_points.clear();
  spline.start_tangent = spline.end_tangent = {};
}

void put_control_points(Spline& spline, const Value& value) {
  auto points = to_points(value, spline.control_points.size(), Member::ControlPoints);
  if (points == spline.control_points) return;
  spline.control_points = std::move(points);
  forget_fit_points(spline);
}

void put_fit_points(Spline& spline, const Value& value) {
  const auto points = to_points(value, spline.fit_points.size(), Member::FitPoints);
  if (points != spline.fit_points) throw not_supported("FitPoints of SPLINE, to be put,");
}

Value get_control_point(Spline& spline, Arguments& arguments) {
  return to_value(spline.control_points[arguments.index(0, spline.control_points.size())]);
}

Value set_control_point(Spline& spline, Arguments& arguments) {
  const std::size_t at = arguments.index(0, spline.control_points.size());
  spline.control_points[at] = arguments.point(1, "controlPoint");
  forget_fit_points(spline);
  return {};
}

Value get_fit_point(Spline& spline, Arguments& arguments) {
  return to_value(spline.fit_points[arguments.index(0, spline.fit_points.size())]);
}

template <std::int32_t flag>
Value has_flag(const Spline& spline) {
  return (spline.flags & flag) != 0;
}

constexpr std::array spline_properties{
    Property<Spline>{Member::ControlPoints,
                     [](const Spline& spline) { return to_value(spline.control_points); },
                     put_control_points},
    Property<Spline>{Member::FitPoints,
                     [](const Spline& spline) { return to_value(spline.fit_points); },
                     put_fit_points},
    Property<Spline>{Member::NumberOfControlPoints,
                     [](const Spline& spline) -> Value { return count(spline.control_points); }},
    Property<Spline>{Member::NumberOfFitPoints,
                     [](const Spline& spline) -> Value { return count(spline.fit_points); }},
    Property<Spline>{Member::Knots, [](const Spline& spline) -> Value { return spline.knots; }},
    Property<Spline>{Member::Weights, [](const Spline& spline) -> Value { return spline.weights; }},
    Property<Spline>{Member::Degree, [](const Spline& spline) -> Value { return spline.degree; }},
    Property<Spline>{Member::Closed, has_flag<Spline::closed_flag>},
    Property<Spline>{Member::IsPeriodic, has_flag<Spline::periodic_flag>},
    Property<Spline>{Member::IsPlanar, has_flag<Spline::planar_flag>},
    Property<Spline>{Member::IsRational, has_flag<Spline::rational_flag>},
    Property<Spline>{Member::Area, [](const Spline& spline) -> Value { return area(spline); }},
};

constexpr std::array spline_methods{
    Method<Spline>{Member::GetControlPoint, Effect::reads, 1, 1, get_control_point},
    Method<Spline>{Member::SetControlPoint, Effect::changes, 2, 2, set_control_point},
    Method<Spline>{Member::GetFitPoint, Effect::reads, 1, 1, get_fit_point},
};

}  // namespace

std::span<const Property<Spline>> properties(const Spline&) { return spline_properties; }
std::span<const Method<Spline>> methods(const Spline&) { return spline_methods; }

bool hides(const Spline&, Member member) { return member == Member::Normal; }

}  // namespace velmar::embedded
