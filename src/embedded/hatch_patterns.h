#pragma once

#include <string>

#include "drawing/drawing.h"

namespace velmar::embedded {

/// Gives the hatch another pattern at its angle and scale. Type 0, user defined: the name means
/// nothing, the lines are as far apart as the scale says. Types 1 and 2: a standard pattern, in the
/// units that the drawing measures in. Invalid input for other types, and for unknown names.
void choose_pattern(drawing::Hatch& hatch, const drawing::Drawing& drawing, std::int32_t type,
                    const std::string& name);

}  // namespace velmar::embedded
