#pragma once

#include <optional>
#include <vector>

#include "drawing/drawing.h"
#include "render/painter.h"

namespace velmar::render {

/// What is drawn of an entity that the drawing keeps whole without a body of its own, in world
/// coordinates.
struct KeptShape {
  std::vector<Chain> lines = {};
  std::vector<Chain> areas = {};
  std::vector<Chain> masks = {};  // in the colour of the paper
  std::vector<drawing::MText> texts = {};
  std::optional<drawing::Insert> block = {};
  bool is_dimension = false;
};

/// Images and wipeouts by their frames, multilines, multileaders, tables, dimensions of newer
/// kinds, meshes, helices; nothing for other kinds.
std::optional<KeptShape> kept_shape(const drawing::Drawing& drawing, drawing::RecordId id);

}  // namespace velmar::render
