#pragma once

#include "drawing/geometry/matrix.h"

namespace velmar::drawing {

/// The normal as a unit vector; the z axis for one that is zero or not finite.
Point unit_normal(Point normal);

/// The object coordinate system of a normal, as a map from OCS to world coordinates.
/// Arbitrary axis algorithm of the DXF reference: where |nx| and |ny| are below 1/64 the x axis is
/// world y x normal, otherwise world z x normal.
Matrix ocs_to_world(Point normal);
/// The inverse of the same (an orthonormal map, so its transpose). A zero normal counts as the z
/// axis.
Matrix world_to_ocs(Point normal);

}  // namespace velmar::drawing
