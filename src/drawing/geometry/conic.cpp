#include "drawing/geometry/conic.h"

#include "drawing/geometry/ocs.h"

namespace velmar::drawing {

namespace {

constexpr double default_step = 0.05;
constexpr double most_chords = 100000;

}  // namespace

Point Conic::operator()(double t) const {
  return center + cosine * std::cos(t) + sine * std::sin(t);
}

Conic circular(Point center, double radius, Point normal, double start, double sweep) {
  const Matrix world = ocs_to_world(normal);
  return {world(center), world.x * radius, world.y * radius, start, sweep};
}

Box extents(const Conic& conic) {
  Box box;
  box.add(conic(conic.start));
  box.add(conic(conic.start + conic.sweep));
  for (double Point::*axis : {&Point::x, &Point::y, &Point::z}) {
    const double a = conic.cosine.*axis, b = conic.sine.*axis;
    const double top = std::atan2(b, a), reach = std::hypot(a, b);
    if (wrapped(top - conic.start) <= conic.sweep)
      box.max.*axis = std::max(box.max.*axis, conic.center.*axis + reach);
    if (wrapped(top + std::numbers::pi - conic.start) <= conic.sweep)
      box.min.*axis = std::min(box.min.*axis, conic.center.*axis - reach);
  }
  return box;
}

std::vector<Point> outline(const Conic& conic) {
  const int chords = chord_count(conic.sweep, default_step);
  std::vector<Point> points;
  points.reserve(static_cast<std::size_t>(chords) + 1);
  for (int i = 0; i <= chords; ++i) points.push_back(conic(conic.start + conic.sweep * i / chords));
  return points;
}

int chord_count(double sweep, double step) {
  const double chords = std::ceil(std::abs(sweep) / (step > 0 ? step : default_step));
  if (!(chords > 1)) return 1;
  return static_cast<int>(std::min(chords, most_chords));
}

double make_square(Point& cosine, Point& sine) {
  const double mixed = dot(cosine, sine), a = dot(cosine, cosine), b = dot(sine, sine);
  const bool square = std::abs(mixed) <= 1e-13 * std::sqrt(a * b);
  if (square && b <= a * (1 + 1e-13)) return 0;
  const double t = square ? std::numbers::pi / 2 : std::atan2(2 * mixed, a - b) / 2;
  const Point old = cosine;
  cosine = old * std::cos(t) + sine * std::sin(t);
  sine = sine * std::cos(t) - old * std::sin(t);
  return t;
}

double segment_area(double radius, double sweep) {
  // sweep - sin(sweep) cancels for flat arcs, whose radius is large: there by its series.
  const double s = sweep * sweep;
  const double excess = std::abs(sweep) < 0.1
                            ? sweep * s / 6 * (1 - s / 20 * (1 - s / 42 * (1 - s / 72)))
                            : sweep - std::sin(sweep);
  return radius * radius * excess / 2;
}

}  // namespace velmar::drawing
