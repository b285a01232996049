#include "basic/decimal.h"

#include <array>
#include <charconv>
#include <cmath>
#include <string_view>
#include <system_error>

#include "basic/failure.h"

namespace velmar::basic {
namespace {

constexpr std::size_t longest = 64;  // sign, point and exponent around at most 17 digits

/// Takes apart "d.ddde-xx".
Decimal from_scientific(std::string_view text, bool negative) {
  const std::size_t mark = text.find('e');
  Decimal decimal{.digits = std::string(text.substr(0, 1)), .exponent = 0, .negative = negative};
  if (mark > 2) decimal.digits += text.substr(2, mark - 2);
  std::string_view power = text.substr(mark + 1);
  if (power.starts_with('+')) power.remove_prefix(1);
  std::from_chars(power.data(), power.data() + power.size(), decimal.exponent);
  decimal.exponent -= static_cast<std::int64_t>(decimal.digits.size()) - 1;
  return decimal;
}

}  // namespace

Decimal shortest(double number) {
  std::array<char, longest> text;
  const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(), std::abs(number),
                                          std::chars_format::scientific);
  return from_scientific({text.data(), end}, std::signbit(number));
}

Decimal rounded_to(double number, int significant_digits) {
  std::array<char, longest> text;
  const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(), std::abs(number),
                                          std::chars_format::scientific, significant_digits - 1);
  return from_scientific({text.data(), end}, std::signbit(number));
}

double to_double(const Decimal& decimal) {
  const std::size_t first = decimal.digits.find_first_not_of('0');
  if (first == std::string::npos) return 0;
  std::string text = decimal.digits.substr(first);
  const std::int64_t magnitude = static_cast<std::int64_t>(text.size()) + decimal.exponent;
  text += 'e' + std::to_string(decimal.exponent);
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error == std::errc::result_out_of_range) {
    if (magnitude > 0) throw Failure(overflow);
    return 0;
  }
  return decimal.negative ? -value : value;
}

bool is_digit(char c) { return c >= '0' && c <= '9'; }

bool is_exponent_mark(char c) { return c == 'e' || c == 'E' || c == 'd' || c == 'D'; }

void append_digit(std::int64_t& exponent, char digit) {
  constexpr std::int64_t enough = 1'000'000'000;
  if (exponent < enough) exponent = exponent * 10 + (digit - '0');
}

}  // namespace velmar::basic
