#pragma once

#include <vector>

#include "drawing/geometry/point.h"

namespace velmar::drawing {

using Strokes = std::vector<std::vector<Point>>;

/// The strokes of a Roman simplex letter on Hershey's grid, where a capital has 21 units: from its
/// leftmost stroke on, the baseline at 0. Letters with an accent of Latin 1 get theirs; an upright
/// frame stands for what is unknown.
Strokes simplex_strokes(char32_t character);

/// The letter under the accent of a character of U+00C0 to U+00FF; others are their own.
char32_t base_letter(char32_t character);

}  // namespace velmar::drawing
