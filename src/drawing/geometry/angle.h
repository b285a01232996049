#pragma once

#include <cmath>
#include <numbers>

#include "drawing/geometry/point.h"

namespace velmar::drawing {

inline constexpr double full_turn = 2 * std::numbers::pi;

/// The direction of a vector in the plane, in (-pi, pi].
inline double angle_of(Point vector) { return std::atan2(vector.y, vector.x); }

/// The same direction as an angle in [0, 2 pi).
inline double wrapped(double angle) {
  const double rest = std::fmod(angle, full_turn);
  if (rest >= 0) return rest;
  return rest + full_turn < full_turn ? rest + full_turn : 0;
}

/// How far it is counter-clockwise from one direction to another, in (0, 2 pi].
inline double sweep_between(double start, double end) {
  const double way = wrapped(end - start);
  return way == 0 ? full_turn : way;
}

}  // namespace velmar::drawing
