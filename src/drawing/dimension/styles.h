#pragma once

#include "drawing/dimension/overrides.h"
#include "drawing/drawing.h"

namespace velmar::drawing {

/// What a style says. A style that the table does not have says what the header says.
DimVariables style_variables(const Drawing& drawing, std::string_view style);
/// What holds for a dimension: its overrides, else its style.
DimVariables variables_of(const Drawing& drawing, RecordId dimension);
/// What the dimension measures: a length times the style's factor for lengths (a negative factor
/// counts in paper space alone), or radians.
double measured(const Drawing& drawing, RecordId dimension);
/// Makes it so: what differs from what holds now becomes an override. Text style and arrow blocks
/// must be in the drawing.
void write_variables(Drawing& drawing, RecordId dimension, const DimVariables& wanted);

}  // namespace velmar::drawing
