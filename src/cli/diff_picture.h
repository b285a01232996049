#pragma once

#include "cli/picture_options.h"
#include "drawing/comparison.h"

namespace velmar::cli {

/// Draws the model spaces of both drawings over each other: what was removed red, what was added
/// green, what changed amber as it is in `b`, the rest grey. Returns what could not be drawn.
std::vector<std::string> draw_differences(const drawing::Drawing& a, const drawing::Drawing& b,
                                          const drawing::Comparison& found,
                                          const PictureOptions& options);

}  // namespace velmar::cli
