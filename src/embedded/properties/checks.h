#pragma once

#include <cstdint>
#include <string>

#include "drawing/drawing.h"
#include "embedded/arguments.h"

namespace velmar::embedded {

// The new value of a plain field, converted; refused with invalid input where the member's value
// may not be such (heights and radii are above 0, scales are not 0, ...).

double checked_number(Member member, const Value& value);
std::int32_t checked_integer(Member member, const Value& value);
/// A text style or a block must be there: key not found otherwise, and the result is its spelling.
std::string checked_text(const drawing::Drawing& drawing, Member member, const Value& value);

}  // namespace velmar::embedded
