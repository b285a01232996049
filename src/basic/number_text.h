#pragma once

#include <string>

#include "basic/separators.h"

namespace velmar::basic {

/// The shortest general form of a number: at most 15 significant digits, no grouping, no trailing
/// zeros, "0.5" with its leading zero; "1E+15" from 1E15 on, and for small numbers once the digits
/// end beyond the 15th decimal. Not-finite numbers have the run-time library's words ("1.#INF",
/// "-1.#INF", "-1.#IND").
std::string general(double number, Separators separators = {});

}  // namespace velmar::basic
