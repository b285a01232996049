#pragma once

#include <cstdint>

namespace velmar::basic {

/// Half to even on the shortest decimal text of the number: 2.5 is 2, 2.0005 to 3 places is
/// 2, 2.0015 is 2.002. Never minus zero. Failure 5 for negative `decimals`; a number that is not
/// finite stays as it is.
double round(double number, int decimals = 0);

/// Drops the fraction, toward zero. Never minus zero.
double fix(double number);

/// Half to even; failure 6 outside the range.
std::int16_t to_int16(double number);
std::int32_t to_int32(double number);

/// Both operands become 32-bit integers by to_int32; the result has the sign of the dividend.
/// Failure 11 for a divisor that rounds to 0.
std::int32_t remainder(double dividend, double divisor);

/// Counts as a 16-bit integer does: a step past 32767 is failure 6.
class Count {
 public:
  Count& operator++();
  std::int16_t value() const { return value_; }

 private:
  std::int16_t value_ = 0;
};

}  // namespace velmar::basic
