#pragma once

#include <optional>
#include <span>
#include <variant>
#include <vector>

#include "drawing/entity.h"

namespace velmar::embedded {

/// A straight piece; it goes on without end where it is open.
struct StraightPiece {
  drawing::Point from, to;
  bool open_start = false, open_end = false;
};

/// A piece of a circle or an ellipse: center + cos t u + sin t v, u and v at a right angle, for t
/// from start to start + sweep (radians, signed).
struct RoundPiece {
  drawing::Point center, u, v;
  double start = 0, sweep = 0;
};

using CurvePiece = std::variant<StraightPiece, RoundPiece>;

/// What an entity is drawn with, in world coordinates and in the order of the way. `extended`: a
/// line has no ends, an arc goes all the way round, an open polyline goes on straight at its ends.
/// Nothing for kinds that are no such curves.
std::optional<std::vector<CurvePiece>> curve_pieces(const drawing::Body& body, bool extended);

}  // namespace velmar::embedded
