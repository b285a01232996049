#pragma once

#include <string_view>

#include "drawing/fonts/font.h"

namespace velmar::drawing {

/// What a line of plain text takes in a font, in units of the capital height, from where its first
/// character begins.
struct LineMeasure {
  double advance = 0;          // to where text that follows begins
  double left = 0, right = 0;  // of what is drawn
  double top = 0, bottom = 0;  // above and below the baseline
  double width = 0;            // as alignment counts it, without blanks at the end
  bool drawn = false;          // false for blanks only
};

/// `tracking` widens what each character takes.
LineMeasure measure_line(const Font& font, std::string_view text, double tracking = 1);

}  // namespace velmar::drawing
