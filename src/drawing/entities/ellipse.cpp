#include "drawing/entities/ellipse.h"

#include <cmath>

#include "drawing/geometry/conic.h"
#include "drawing/geometry/ocs.h"
#include "drawing/geometry/plane_map.h"
#include "drawing/geometry/quadrature.h"

namespace velmar::drawing {

namespace {

/// Files give parameters with few digits: a gap below this is none.
constexpr double parameter_tolerance = 1e-8;

Conic conic(const Ellipse& ellipse) {
  return {ellipse.center, ellipse.major_axis, minor_axis(ellipse), ellipse.start_parameter,
          sweep(ellipse)};
}

/// The angle in the same turn of the circle as `near`.
double beside(double near, double angle) {
  return angle + full_turn * std::round((near - angle) / full_turn);
}

}  // namespace

double sweep(const Ellipse& ellipse) {
  const double way = sweep_between(ellipse.start_parameter, ellipse.end_parameter);
  return way < parameter_tolerance || way > full_turn - parameter_tolerance ? full_turn : way;
}

Point minor_axis(const Ellipse& ellipse) {
  return cross(unit_normal(ellipse.normal), ellipse.major_axis) * ellipse.ratio;
}

Point point_at(const Ellipse& ellipse, double parameter) { return conic(ellipse)(parameter); }

double angle_of_parameter(const Ellipse& ellipse, double parameter) {
  return beside(parameter, std::atan2(ellipse.ratio * std::sin(parameter), std::cos(parameter)));
}

double parameter_of_angle(const Ellipse& ellipse, double angle) {
  return beside(angle, std::atan2(std::sin(angle), ellipse.ratio * std::cos(angle)));
}

bool is_closed(const Ellipse& ellipse) { return sweep(ellipse) == full_turn; }

double length(const Ellipse& ellipse) {
  const double a = norm(ellipse.major_axis), b = a * ellipse.ratio;
  const auto speed = [&](double t) { return std::hypot(a * std::sin(t), b * std::cos(t)); };
  const double start = wrapped(ellipse.start_parameter);
  Halvings halvings;
  return integral(speed, start, start + sweep(ellipse), halvings);
}

double area(const Ellipse& ellipse) {
  const double unit = segment_area(1, sweep(ellipse));
  return unit * dot(ellipse.major_axis, ellipse.major_axis) * std::abs(ellipse.ratio);
}

Box extents(const Ellipse& ellipse) { return extents(conic(ellipse)); }

// Exact for every affine map.
void transform(Ellipse& ellipse, const Matrix& matrix) {
  const bool closed = is_closed(ellipse);
  const double way = sweep(ellipse);
  Point cosine = matrix.direction(ellipse.major_axis);
  Point sine = matrix.direction(minor_axis(ellipse));
  const PlaneMap plane = plane_map(matrix, ellipse.normal);
  ellipse.center = matrix(ellipse.center);
  ellipse.normal = plane.normal;
  double start = ellipse.start_parameter;
  if (plane.mirrored) {
    sine = -sine;
    start = -start - way;
  }
  const double shift = plane.similar ? 0 : make_square(cosine, sine);
  ellipse.major_axis = cosine;
  if (!plane.similar) ellipse.ratio = norm(cosine) > 0 ? norm(sine) / norm(cosine) : 1;
  if (closed || (!plane.mirrored && shift == 0)) return;
  ellipse.start_parameter = wrapped(start - shift);
  ellipse.end_parameter = ellipse.start_parameter + way;
}

std::vector<Point> outline(const Ellipse& ellipse) { return outline(conic(ellipse)); }

}  // namespace velmar::drawing
