#include "basic/arithmetic.h"

#include <cmath>

#include "basic/failure.h"

namespace velmar::basic {

double in_range(double outcome) {
  if (!std::isfinite(outcome)) throw Failure(overflow);
  return outcome;
}

double divide(double dividend, double divisor) {
  if (divisor == 0) throw Failure(dividend == 0 ? overflow : division_by_zero);
  return in_range(dividend / divisor);
}

double power(double base, double exponent) {
  const bool fractional = exponent != std::trunc(exponent);
  if (base == 0 ? exponent < 0 : base < 0 && fractional) throw Failure(bad_argument);
  return in_range(std::pow(base, exponent));
}

double square_root(double number) {
  if (number < 0) throw Failure(bad_argument);
  return std::sqrt(number);
}

}  // namespace velmar::basic
