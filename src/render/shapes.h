#pragma once

#include <cstdint>

#include "drawing/entity.h"
#include "render/canvas.h"

namespace velmar::render {

/// How a drawing shows its points.
struct PointStyle {
  std::int32_t mode = 0;  // $PDMODE
  double size = 0;        // $PDSIZE; below 0 a percentage of the picture's height, 0 five of them
};

/// Draws lines and areas of an entity by its own coordinates. Nothing for what is drawn elsewhere:
/// texts, hatches, dimensions, block references.
void draw_shape(const drawing::Body& body, const Canvas& canvas, const Look& look,
                const PointStyle& points);

}  // namespace velmar::render
