#pragma once

#include "render/kept_kinds.h"

namespace velmar::render {

/// The lines, arrows and note of a MULTILEADER.
KeptShape multileader_shape(const drawing::Drawing& drawing, drawing::RecordId id);

}  // namespace velmar::render
