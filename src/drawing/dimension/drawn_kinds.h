#pragma once

#include "drawing/kind.h"

namespace velmar::drawing {

/// Whether entities of the kind show a block of their own, "*D7".
constexpr bool shows_drawn_block(Kind kind) {
  return kind == Kind::dimension || kind == Kind::arc_dimension ||
         kind == Kind::large_radial_dimension;
}

}  // namespace velmar::drawing
