#pragma once

#include <optional>
#include <span>

#include "drawing/entity.h"

namespace velmar::drawing {

/// The loop that entities make in the plane of a hatch: one closed curve (polyline, circle,
/// ellipse, spline), or lines, arcs and other open curves that join to one, in any order and
/// direction. Gaps of up to a millionth of its size count as closed. Nothing where they make no
/// closed loop, leave the plane, enclose nothing, or are of a kind that bounds no area.
std::optional<HatchLoop> boundary_loop(std::span<const Body> bodies, const Hatch& hatch);

}  // namespace velmar::drawing
