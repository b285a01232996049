#pragma once

#include <map>
#include <string>

#include "drawing/convert/tag_drawing.h"

namespace velmar::drawing {

/// A VIEWPORT for R12, which has its view as extended data ("MVIEW"); layers by their names.
void lower_viewport(TagRecord& viewport, const std::map<Handle, std::string>& layer_names);
/// The way back. Layers are asked for their handles by `layer_handles`, folded names.
void lift_viewport(TagRecord& viewport, const std::map<std::string, Handle>& layer_handles);

}  // namespace velmar::drawing
