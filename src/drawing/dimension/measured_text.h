#pragma once

#include <string>
#include <string_view>

#include "drawing/dimension/angle_text.h"
#include "drawing/dimension/variables.h"

namespace velmar::drawing {

/// How the text is written down: with the codes of MTEXT (fractions and tolerances stacked), or
/// plain, for the single-line TEXT of R12.
enum class TextForm { mtext, plain };

/// A length in the units, decimals and zeros of the variables, without prefix and suffix.
std::string length_text(double length, const DimVariables& variables, TextForm form);

/// The text of a dimension of lengths: the length (see measured()) with all that the variables add,
/// and before it the `mark` of a radius or a diameter unless they say what stands there; in place
/// of "<>" and "[]" in `written` (see Dimension::text) the measured and the alternate one. A text
/// of blanks draws nothing.
std::string measured_text(double length, const std::string& written, const DimVariables& variables,
                          TextForm form, std::string_view mark = {});

/// The same of an angle in radians; tolerances count degrees.
std::string measured_angle_text(double angle, const std::string& written,
                                const DimVariables& variables, const AngleFormat& format,
                                TextForm form);

}  // namespace velmar::drawing
