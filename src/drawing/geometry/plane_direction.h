#pragma once

#include <cmath>

#include "drawing/geometry/ocs.h"

namespace velmar::drawing {

/// The part of a vector that lies in the plane of the normal, as a unit vector; the plane's own x
/// axis where there is none.
inline Point plane_direction(Point vector, Point normal) {
  const Point unit = unit_normal(normal);
  const Point flat = vector - unit * dot(vector, unit);
  const double size = norm(flat);
  const bool lies_in_it = size > 1e-12 * norm(vector) && std::isfinite(size);
  return lies_in_it ? flat * (1 / size) : ocs_to_world(normal).x;
}

}  // namespace velmar::drawing
