#pragma once

#include <string>
#include <utility>
#include <vector>

#include "drawing/entities/tolerance.h"

namespace velmar::drawing {

class Drawing;
struct Store;

/// Group codes from 1001 on, and values as text.
using XData = std::vector<std::pair<int, std::string>>;

/// Height, gap, scale and text font from the row of the dimension style; defaults where there is
/// none.
void apply_dimension_style(const Store& store, const Drawing& drawing, Tolerance& tolerance);
/// What the entity says otherwise, in the extended data of ACAD: DSTYLE { variable value ... }.
void read_overrides(Tolerance& tolerance, const XData& data);
/// The data of ACAD, brought to the height and scale of the tolerance where its style and `data`
/// give others; `data` itself where they do not.
XData with_overrides(const Store& store, const Drawing& drawing, const Tolerance& tolerance,
                     const XData& data);

}  // namespace velmar::drawing
