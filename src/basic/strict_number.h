#pragma once

#include <string_view>

#include "basic/separators.h"

namespace velmar::basic {

/// The strict reading of a number: the whole text must be one, else failure 13; failure 6 beyond
/// the range of a double. Blanks around it, an exponent with E or D, &H and &O forms, grouping
/// marks anywhere after the first digit, and one sign in front or behind ("5-") or brackets ("(5)"
/// is -5) are part of a number. Currency signs are not.
double strict_number(std::string_view text, Separators separators = {});

}  // namespace velmar::basic
