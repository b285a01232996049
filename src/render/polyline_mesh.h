#pragma once

#include <optional>
#include <vector>

#include "drawing/drawing.h"
#include "render/painter.h"

namespace velmar::render {

/// The edges of a polygon mesh or a polyface mesh, in world coordinates; nothing for polylines that
/// are no mesh.
std::optional<std::vector<Chain>> polyline_mesh_lines(const drawing::Drawing& drawing,
                                                      drawing::RecordId id);

}  // namespace velmar::render
