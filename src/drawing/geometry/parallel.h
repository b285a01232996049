#pragma once

#include <optional>
#include <span>
#include <vector>

#include "drawing/geometry/bulge.h"

namespace velmar::drawing {

/// The way at that distance beside this one, on its right where positive. Arcs keep their centres;
/// neighbours are cut off or go on to where they meet, and a straight piece joins those that never
/// do. Pieces for which there is no room are left out. Nothing where none is left, or where their
/// neighbours do not meet. Parts that come too near to far parts of the way are not cut off.
std::optional<std::vector<BulgeVertex>> parallel(std::span<const BulgeVertex> vertices, bool closed,
                                                 double distance);

}  // namespace velmar::drawing
