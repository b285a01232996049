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

/// A part of a circle, counter-clockwise.
struct ArcStretch {
  Point center;
  double radius = 0, start = 0, end = 0;
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

/// How much of the dimension line the marks at its ends cover, in arrow sizes (0 or 1).
using ArrowTrims = std::pair<double, double>;

/// A dimension laid out, all in the OCS of its normal.
struct DimensionLayout {
  std::vector<Stretch> lines;       // of the dimension line, a leader to the text, centre marks
  std::vector<ArcStretch> arcs;     // the dimension line of an angle
  std::vector<Stretch> extensions;  // at most two
  std::optional<ArrowPlace> first_arrow, second_arrow;
  Point text_middle;
  double text_angle = 0;
  Point definition;  // what Dimension::definition says, brought up to date
};

// A text place that the user chose is kept; otherwise the variables choose it.

/// Of rotated and aligned dimensions.
DimensionLayout linear_layout(const Dimension& dimension, const DimVariables& variables,
                              TextRoom text, ArrowTrims trims);
/// Of both kinds of angles.
DimensionLayout angular_layout(const Dimension& dimension, const DimVariables& variables,
                               TextRoom text, ArrowTrims trims);
/// Of radii and diameters.
DimensionLayout round_layout(const Dimension& dimension, const DimVariables& variables,
                             TextRoom text, ArrowTrims trims);
DimensionLayout ordinate_layout(const Dimension& dimension, const DimVariables& variables,
                                TextRoom text);

/// By its kind.
DimensionLayout lay_out(const Dimension& dimension, const DimVariables& variables, TextRoom text,
                        ArrowTrims trims);

}  // namespace velmar::drawing
