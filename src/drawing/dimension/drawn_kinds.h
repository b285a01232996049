#pragma once

#include "drawing/kind.h"

namespace velmar::drawing {

/// Whether what is drawn of the kind is kept as its writer left it: arc length and jogged radius.
constexpr bool is_kept_dimension(Kind kind) {
  return kind == Kind::arc_dimension || kind == Kind::large_radial_dimension;
}

/// Whether entities of the kind show a block of their own, "*D7".
constexpr bool shows_drawn_block(Kind kind) {
  return kind == Kind::dimension || is_kept_dimension(kind);
}

}  // namespace velmar::drawing
