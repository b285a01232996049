#include "basic/number_text.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "basic/decimal.h"

namespace velmar::basic {
namespace {

constexpr std::int64_t most_digits = 15;

/// `power` is the exponent of the first digit.
bool is_fixed(std::int64_t power, std::int64_t digit_count) {
  if (power >= 0) return power < most_digits;
  return power >= -4 || -power + std::max<std::int64_t>(0, digit_count - 2) < most_digits;
}

/// Puts the decimal mark after the first `whole` digits, with zeros where there are none.
std::string fixed(std::string digits, std::int64_t whole, char mark) {
  const auto count = static_cast<std::int64_t>(digits.size());
  if (whole >= count) return digits.append(static_cast<std::size_t>(whole - count), '0');
  if (whole <= 0) {
    digits.insert(0, static_cast<std::size_t>(1 - whole), '0');
    whole = 1;
  }
  return digits.insert(static_cast<std::size_t>(whole), 1, mark);
}

std::string scientific(std::string digits, std::int64_t power, char mark) {
  if (digits.size() > 1) digits.insert(1, 1, mark);
  const std::string amount = std::to_string(std::abs(power));
  return digits + (power < 0 ? "E-" : "E+") + (amount.size() < 2 ? "0" : "") + amount;
}

}  // namespace

std::string general(double number, Separators separators) {
  if (std::isnan(number)) return "-1.#IND";
  if (std::isinf(number)) return number < 0 ? "-1.#INF" : "1.#INF";
  if (number == 0) return "0";  // minus zero too
  Decimal decimal = rounded_to(number, most_digits);
  const std::int64_t power = decimal.exponent + most_digits - 1;
  decimal.digits.erase(decimal.digits.find_last_not_of('0') + 1);
  const std::string text = is_fixed(power, static_cast<std::int64_t>(decimal.digits.size()))
                               ? fixed(decimal.digits, power + 1, separators.decimal)
                               : scientific(decimal.digits, power, separators.decimal);
  return decimal.negative ? "-" + text : text;
}

}  // namespace velmar::basic
