#pragma once

#include <string>

#include "drawing/dimension/variables.h"

namespace velmar::drawing {

/// How the text is written down: with the codes of MTEXT (fractions and tolerances stacked), or
/// plain, for the single-line TEXT of R12.
enum class TextForm { mtext, plain };

/// A length in the units, decimals and zeros of the variables, without prefix and suffix.
std::string length_text(double length, const DimVariables& variables, TextForm form);

/// The text of a linear dimension: the length (see measured()) with all that the variables add;
/// `written` (see Dimension::text) goes before it, with "<>" and "[]" for the measured and the
/// alternate one. A text of blanks draws nothing.
std::string measured_text(double length, const std::string& written, const DimVariables& variables,
                          TextForm form);

}  // namespace velmar::drawing
