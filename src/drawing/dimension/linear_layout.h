#pragma once

#include <optional>
#include <utility>
#include <vector>

#include "drawing/dimension/variables.h"
#include "drawing/entities/dimension.h"

namespace velmar::drawing {

struct Stretch {
  Point from, to;
};

/// A mark at an end of the dimension line: its tip, and the direction in which it points.
struct ArrowPlace {
  Point tip;
  double angle = 0;
};

/// How large the text is that is to be placed; nothing wide where there is none.
struct TextRoom {
  double width = 0, height = 0;
};

/// A linear dimension laid out, all in the OCS of its normal.
struct LinearLayout {
  std::vector<Stretch> lines;       // of the dimension line, and a leader to the text
  std::vector<Stretch> extensions;  // at most two
  std::optional<ArrowPlace> first_arrow, second_arrow;
  Point text_middle;
  double text_angle = 0;
  Point definition;  // where the dimension line meets the second extension line
};

/// `trims`: how much of the dimension line the marks at its ends cover, in arrow sizes (0 or 1).
/// A text place that the user chose is kept; otherwise the variables choose it.
LinearLayout lay_out(const Dimension& dimension, const DimVariables& variables, TextRoom text,
                     std::pair<double, double> trims);

}  // namespace velmar::drawing
