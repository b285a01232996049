#pragma once

#include <optional>

#include "drawing/geometry/matrix.h"
#include "render/window.h"

namespace velmar::render {

/// How a part of a drawing is laid on a picture. Sizes in picture units.
struct FrameOptions {
  double longest = 1600;  // side, where no size is given
  std::optional<std::pair<double, double>> size = {};
  std::optional<double> scale = {};  // picture units to a drawing unit; else as large as fits
  double margin = 0;
};

struct Frame {
  double width = 0, height = 0;
  drawing::Matrix place;  // from the drawing to the picture

  Window window() const { return {0, 0, width, height}; }
};

/// The middle of what is shown comes to the middle of the picture. Fails with drawing::Error where
/// the margins leave no room, or the picture would be too large.
Frame make_frame(const Window& shown, const FrameOptions& options);

}  // namespace velmar::render
