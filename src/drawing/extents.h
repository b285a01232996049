#pragma once

#include <optional>
#include <vector>

#include "drawing/drawing.h"

namespace velmar::drawing {

/// The box of an entity in world coordinates; block references with everything in them. Nothing for
/// what draws nothing, has no finite extents, or is of a kind not understood yet. Fails with Error
/// for blocks nested in themselves.
std::optional<Box> extents(const Drawing& drawing, RecordId id);

/// The curves an entity is drawn with, as chains of points in world coordinates; for picking by a
/// point or a window.
std::vector<std::vector<Point>> outlines(const Drawing& drawing, RecordId id);

}  // namespace velmar::drawing
