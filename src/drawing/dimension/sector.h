#pragma once

#include "drawing/entities/dimension.h"

namespace velmar::drawing {

/// How far from the vertex something along a ray begins and ends.
struct Reach {
  double near = 0, far = 0;
};

/// What an angular dimension measures, in the OCS of its normal: counter-clockwise from `start`.
/// Without a radius where it measures nothing (parallel lines, an arc in the vertex).
struct Sector {
  Point vertex;
  double radius = 0, start = 0, sweep = 0;
  Reach first, second;  // of what is measured, along the rays at its start and its end
};
Sector sector_of(const Dimension& dimension);

}  // namespace velmar::drawing
