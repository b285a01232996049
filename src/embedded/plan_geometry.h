#pragma once

#include <vector>

#include "drawing/geometry/box.h"

namespace velmar::embedded {

// Chains of points seen from above: z does not count.

using Chain = std::vector<drawing::Point>;

/// From the point to the nearest place of the chain; infinite for an empty one.
double plan_distance(const Chain& chain, drawing::Point point);
/// Whether the point is inside the area that the chain, closed, goes round (even-odd).
bool encloses(const Chain& chain, drawing::Point point);
/// Whether any part of the chain is inside the box or on its edge.
bool touches(const Chain& chain, const drawing::Box& box);
/// Whether two chains have a point in common.
bool cross(const Chain& a, const Chain& b);
/// Edges count as inside.
bool contains(const drawing::Box& box, drawing::Point point);
bool contains(const drawing::Box& outer, const drawing::Box& inner);

}  // namespace velmar::embedded
