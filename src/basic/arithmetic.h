#pragma once

namespace velmar::basic {

// Arithmetic on doubles that fails where Basic's does: beyond the range of a double with failure 6.

/// The outcome of an addition, a subtraction or a multiplication, if it is in range.
double in_range(double outcome);
/// Failure 11 for a divisor of 0, or 6 when the dividend is 0 too.
double divide(double dividend, double divisor);
/// Failure 5 for 0 to a negative power, and for a negative base with a fractional exponent.
double power(double base, double exponent);
/// Failure 5 for a negative number.
double square_root(double number);

}  // namespace velmar::basic
