#pragma once

#include <cstdint>
#include <string>

namespace velmar::basic {

/// A number as decimal digits: `digits` read as a whole number, times ten to the power `exponent`.
struct Decimal {
  std::string digits;  // '0' to '9'; none is zero
  std::int64_t exponent = 0;
  bool negative = false;
};

/// The fewest digits that read back as the same number. Only for finite numbers.
Decimal shortest(double number);
/// The nearest decimal with that many significant digits. Only for finite numbers.
Decimal rounded_to(double number, int significant_digits);

/// The nearest double; failure 6 beyond its range, 0 for a number too small for it.
double to_double(const Decimal& decimal);

bool is_digit(char c);
/// E and D, in either case, stand before an exponent.
bool is_exponent_mark(char c);
/// Appends a digit to an exponent being read; far beyond the range of a double it stays as it is.
void append_digit(std::int64_t& exponent, char digit);

}  // namespace velmar::basic
