#include "drawing/geometry/nurbs.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "drawing/geometry/quadrature.h"

namespace velmar::drawing {
namespace {

constexpr std::int32_t highest_degree = 25;
constexpr int chords_of_a_span = 16;

/// A point of the curve times its weight, and the weight.
struct Weighted {
  Point point;
  double weight = 0;
};

Weighted mix(const Weighted& a, const Weighted& b, double t) {
  return {a.point * (1 - t) + b.point * t, a.weight * (1 - t) + b.weight * t};
}

bool is_finite(Point p) { return std::isfinite(p.x + p.y + p.z); }

/// The knot interval that holds the parameter: the last one that is not empty at the curve's end.
std::size_t interval(const Nurbs& curve, double parameter) {
  const auto degree = static_cast<std::size_t>(curve.degree);
  const std::size_t count = curve.control_points.size();
  const auto first = curve.knots.begin() + static_cast<std::ptrdiff_t>(degree);
  const auto last = curve.knots.begin() + static_cast<std::ptrdiff_t>(count);
  auto above = std::upper_bound(first, last, parameter);
  while (above == last && above - 1 != first && *(above - 1) == *last) {
    above = std::lower_bound(first, last, *last);
  }
  return static_cast<std::size_t>(std::max(above, first + 1) - curve.knots.begin()) - 1;
}

double golden(const Nurbs& curve, double from, double to, double Point::*axis, double sign) {
  constexpr double ratio = 0.6180339887498949;
  const auto height = [&](double t) { return sign * (evaluate(curve, t).position.*axis); };
  double a = to - ratio * (to - from), b = from + ratio * (to - from);
  double at_a = height(a), at_b = height(b);
  for (int i = 0; i < 60; ++i) {
    if (at_a > at_b) {
      to = b, b = a, at_b = at_a;
      a = to - ratio * (to - from), at_a = height(a);
    } else {
      from = a, a = b, at_a = at_b;
      b = from + ratio * (to - from), at_b = height(b);
    }
  }
  return (from + to) / 2;
}

/// A place between the middle one's neighbours where the curve goes farthest, on both sides of each
/// axis, when the middle one lies farther than they.
void add_turning_points(Box& box, const Nurbs& curve, const std::array<double, 3>& t,
                        const std::array<Point, 3>& at) {
  for (double Point::*axis : {&Point::x, &Point::y, &Point::z}) {
    for (const double sign : {-1.0, 1.0}) {
      const double middle = sign * (at[1].*axis);
      if (middle < sign * (at[0].*axis) || middle < sign * (at[2].*axis)) continue;
      box.add(evaluate(curve, golden(curve, t[0], t[2], axis, sign)).position);
    }
  }
}

}  // namespace

bool is_sound(const Nurbs& curve) {
  const std::size_t count = curve.control_points.size();
  if (curve.degree < 1 || curve.degree > highest_degree) return false;
  if (count <= static_cast<std::size_t>(curve.degree)) return false;
  if (curve.knots.size() != count + static_cast<std::size_t>(curve.degree) + 1) return false;
  const auto sound = [](const ControlPoint& p) {
    return is_finite(p.position) && std::isfinite(p.weight) && p.weight > 0;
  };
  return std::ranges::all_of(curve.knots, [](double knot) { return std::isfinite(knot); }) &&
         std::ranges::is_sorted(curve.knots) && std::ranges::all_of(curve.control_points, sound) &&
         first_parameter(curve) < last_parameter(curve);
}

double first_parameter(const Nurbs& curve) {
  return curve.knots[static_cast<std::size_t>(curve.degree)];
}

double last_parameter(const Nurbs& curve) { return curve.knots[curve.control_points.size()]; }

// De Boor's algorithm; the last step but one gives the derivative.
NurbsPoint evaluate(const Nurbs& curve, double parameter) {
  const double t = std::clamp(parameter, first_parameter(curve), last_parameter(curve));
  const std::size_t at = interval(curve, t), degree = static_cast<std::size_t>(curve.degree);
  std::array<Weighted, highest_degree + 1> d;
  for (std::size_t i = 0; i <= degree; ++i) {
    const ControlPoint& point = curve.control_points[at - degree + i];
    d[i] = {point.position * point.weight, point.weight};
  }
  Weighted slope;
  for (std::size_t step = 1; step <= degree; ++step) {
    if (step == degree) {
      const double rate = static_cast<double>(degree) / (curve.knots[at + 1] - curve.knots[at]);
      slope = {(d[degree].point - d[degree - 1].point) * rate,
               (d[degree].weight - d[degree - 1].weight) * rate};
    }
    for (std::size_t i = degree; i >= step; --i) {
      const double low = curve.knots[at - degree + i], high = curve.knots[at + 1 + i - step];
      d[i] = mix(d[i - 1], d[i], high > low ? (t - low) / (high - low) : 0);
    }
  }
  const Point position = d[degree].point * (1 / d[degree].weight);
  return {position, (slope.point - position * slope.weight) * (1 / d[degree].weight)};
}

std::vector<double> span_ends(const Nurbs& curve) {
  std::vector<double> ends(curve.knots.begin() + curve.degree, curve.knots.end() - curve.degree);
  ends.erase(std::unique(ends.begin(), ends.end()), ends.end());
  return ends;
}

double length(const Nurbs& curve) {
  constexpr int for_a_span = 16;
  const auto speed = [&](double t) { return norm(evaluate(curve, t).derivative); };
  const std::vector<double> ends = span_ends(curve);
  Halvings halvings{.depth = 10, .left = 1024};
  halvings.left += for_a_span * static_cast<int>(ends.size());
  double sum = 0;
  for (std::size_t i = 1; i < ends.size(); ++i) {
    sum += integral(speed, ends[i - 1], ends[i], halvings);
  }
  return sum;
}

Point swept_area(const Nurbs& curve, Point base) {
  const auto rate = [&](double t) {
    const NurbsPoint at = evaluate(curve, t);
    return cross(at.position - base, at.derivative);
  };
  // Of a quotient the eight points are not exact: several times as many are near enough.
  constexpr int parts = 8;
  const std::vector<double> ends = span_ends(curve);
  Point sum;
  for (std::size_t i = 1; i < ends.size(); ++i) {
    const double step = (ends[i] - ends[i - 1]) / parts;
    for (int part = 0; part < parts; ++part) {
      const double from = ends[i - 1] + step * part;
      sum = sum + quadrature<Point>(rate, from, from + step);
    }
  }
  return sum;
}

std::vector<Point> flatten(const Nurbs& curve) {
  const std::vector<double> ends = span_ends(curve);
  std::vector<Point> points{evaluate(curve, ends.front()).position};
  for (std::size_t i = 1; i < ends.size(); ++i) {
    for (int chord = 1; chord <= chords_of_a_span; ++chord) {
      const double part = static_cast<double>(chord) / chords_of_a_span;
      points.push_back(evaluate(curve, ends[i - 1] + (ends[i] - ends[i - 1]) * part).position);
    }
  }
  return points;
}

Box extents(const Nurbs& curve) {
  const std::vector<double> ends = span_ends(curve);
  const std::vector<Point> points = flatten(curve);
  Box box;
  for (const Point& point : points) box.add(point);
  const auto parameter = [&](std::size_t i) {
    const std::size_t span = std::min(i / chords_of_a_span, ends.size() - 2);
    const double part = static_cast<double>(i - span * chords_of_a_span) / chords_of_a_span;
    return ends[span] + (ends[span + 1] - ends[span]) * part;
  };
  for (std::size_t i = 1; i + 1 < points.size(); ++i) {
    add_turning_points(box, curve, {parameter(i - 1), parameter(i), parameter(i + 1)},
                       {points[i - 1], points[i], points[i + 1]});
  }
  return box;
}

Nurbs reversed(const Nurbs& curve) {
  Nurbs result = curve;
  std::ranges::reverse(result.control_points);
  std::ranges::reverse(result.knots);
  for (double& knot : result.knots) knot = -knot;
  return result;
}

}  // namespace velmar::drawing
