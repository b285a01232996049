#pragma once

#include "drawing/fonts/font_choice.h"

namespace velmar::drawing {

/// What a text style says of the texts that name it. The drawing sets it in what it reads; where it
/// did not, the font is a plain stroke font.
struct TextLook {
  FontPointer font = {};
  FontShelfPointer fonts = {};  // for fonts that codes within a text name
  double width_factor = 1;
  double oblique = 0;  // radians
};

}  // namespace velmar::drawing
