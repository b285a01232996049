#pragma once

#include <span>
#include <vector>

#include "drawing/geometry/bulge.h"
#include "drawing/geometry/conic.h"
#include "render/canvas.h"

namespace velmar::render {

/// The curve by chords that cannot be told from it in the picture.
Chain chain_of(const drawing::Conic& conic, const Canvas& canvas);

/// Through these points in their order, smoothly; for curves that a file gives by points alone.
Chain smooth(std::span<const Point> points);

/// A polyline in its own plane; `plane` maps that to the drawing. Segments with a width are areas,
/// the others lines; with `whole` a pattern goes on around corners.
void draw_way(std::span<const drawing::BulgeVertex> vertices, bool closed, bool whole,
              const drawing::Matrix& plane, const Canvas& canvas, const Look& look);

}  // namespace velmar::render
