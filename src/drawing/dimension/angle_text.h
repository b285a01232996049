#pragma once

#include <string>

#include "drawing/drawing.h"

namespace velmar::drawing {

/// How a dimension writes angles: DIMAUNIT, DIMADEC and DIMAZIN.
struct AngleFormat {
  enum Units : std::int32_t { decimal_degrees, minutes_and_seconds, gradians, radians };
  static constexpr std::int32_t no_leading_zero = 1, no_trailing_zeros = 2;

  std::int32_t units = decimal_degrees;
  std::int32_t decimals = 0;  // -1: as many as lengths have
  std::int32_t zeros = 0;     // what is suppressed
};

/// What holds for a dimension: its overrides, else its style, else the header.
AngleFormat angle_format(const Drawing& drawing, RecordId dimension);

/// An angle as MTEXT and TEXT read it: "45%%d", "45%%d30'", "50g", "0.79r".
std::string angle_text(double angle, const AngleFormat& format, const DimVariables& variables);

}  // namespace velmar::drawing
