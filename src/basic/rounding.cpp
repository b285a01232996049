#include "basic/rounding.h"

#include <cmath>
#include <limits>
#include <string>
#include <string_view>

#include "basic/decimal.h"
#include "basic/failure.h"

namespace velmar::basic {
namespace {

/// Whether a whole number with these digits goes up when `dropped` digits after it are taken away.
bool rounds_up(std::string_view kept, std::string_view dropped) {
  if (dropped.front() != '5') return dropped.front() > '5';
  if (dropped.find_first_not_of('0', 1) != std::string_view::npos) return true;
  return !kept.empty() && (kept.back() - '0') % 2 != 0;
}

std::string plus_one(std::string digits) {
  const std::size_t last = digits.find_last_not_of('9');
  if (last == std::string::npos) return "1" + std::string(digits.size(), '0');
  ++digits[last];
  return digits.replace(last + 1, std::string::npos, digits.size() - last - 1, '0');
}

template <class Integer>
Integer to_integer(double number) {
  using Limits = std::numeric_limits<Integer>;
  const double whole = round(number);
  if (!(whole >= Limits::min() && whole <= Limits::max())) throw Failure(overflow);
  return static_cast<Integer>(whole);
}

}  // namespace

double round(double number, int decimals) {
  if (decimals < 0) throw Failure(bad_argument);
  if (!std::isfinite(number)) return number;
  Decimal decimal = shortest(number);
  const std::int64_t surplus = -decimal.exponent - decimals;
  if (surplus <= 0) return number + 0.0;  // plus zero: minus zero becomes zero
  const auto count = static_cast<std::int64_t>(decimal.digits.size());
  if (surplus > count) return 0;
  const std::string dropped = decimal.digits.substr(static_cast<std::size_t>(count - surplus));
  decimal.digits.erase(static_cast<std::size_t>(count - surplus));
  if (rounds_up(decimal.digits, dropped)) decimal.digits = plus_one(decimal.digits);
  decimal.exponent = -decimals;
  return to_double(decimal);
}

double fix(double number) { return std::trunc(number) + 0.0; }

std::int16_t to_int16(double number) { return to_integer<std::int16_t>(number); }
std::int32_t to_int32(double number) { return to_integer<std::int32_t>(number); }

std::int32_t remainder(double dividend, double divisor) {
  const std::int64_t left = to_int32(dividend), right = to_int32(divisor);
  if (right == 0) throw Failure(division_by_zero);
  return static_cast<std::int32_t>(left % right);  // 64 bits: the smallest number by -1 is defined
}

Count& Count::operator++() {
  if (value_ == std::numeric_limits<std::int16_t>::max()) throw Failure(overflow);
  ++value_;
  return *this;
}

}  // namespace velmar::basic
