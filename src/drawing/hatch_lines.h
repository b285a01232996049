#pragma once

#include <cstddef>
#include <vector>

#include "drawing/entities/hatch.h"

namespace velmar::drawing {

/// A piece of a pattern line in the plane of the hatch; a dot where both ends are the same.
struct HatchSegment {
  Point from, to;
};

/// The pattern lines of a hatch within its loops, islands by its style: family by family, line by
/// line. None for a solid one. Arcs and splines of the loops count by their chords. Fails with
/// Error where there would be more pieces than `at_most`: the pattern is too dense.
std::vector<HatchSegment> hatch_lines(const Hatch& hatch, std::size_t at_most = 1'000'000);

}  // namespace velmar::drawing
