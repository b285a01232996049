#pragma once

#include <optional>

#include "drawing/drawing.h"

namespace velmar::render {

/// How many millimetres a unit of a space is: of model space by $INSUNITS, else $MEASUREMENT; of a
/// sheet by its page setup.
double millimetres_per_unit(const drawing::Drawing& drawing, drawing::SpaceId space);

}  // namespace velmar::render
