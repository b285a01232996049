#pragma once

#include <span>
#include <vector>

#include "embedded/curve_pieces.h"

namespace velmar::embedded {

/// The points that two curves have in common, each once; pieces that lie on one another have none.
/// Points count as common when they are within about 1e-9 of the curves' size.
std::vector<drawing::Point> intersections(std::span<const CurvePiece> first,
                                          std::span<const CurvePiece> second);

}  // namespace velmar::embedded
