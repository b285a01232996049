#include "basic/strict_number.h"

#include <cstdint>

#include "basic/decimal.h"
#include "basic/failure.h"
#include "basic/radix.h"

namespace velmar::basic {
namespace {

constexpr std::string_view blank_characters = "\t\n\v\f\r ";

bool is_blank(char c) { return blank_characters.find(c) != std::string_view::npos; }

/// A number without its blanks and its sign.
struct Bare {
  std::string_view text;
  bool negative = false;
};

Bare bare(std::string_view text) {
  char sign = '\0';
  for (; !text.empty(); text.remove_prefix(1)) {
    const char c = text.front();
    if (is_blank(c)) continue;
    if (sign != '\0' || (c != '-' && c != '+' && c != '(')) break;
    sign = c;
  }
  bool open = sign == '(';
  for (; !text.empty(); text.remove_suffix(1)) {
    const char c = text.back();
    if (is_blank(c)) continue;
    if (open && c == ')') {
      open = false;
    } else if (sign == '\0' && (c == '-' || c == '+')) {
      sign = c;
    } else {
      break;
    }
  }
  if (open) throw Failure(type_mismatch);
  return {text, sign == '-' || sign == '('};
}

std::int64_t exponent_of(std::string_view text) {
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) text.remove_prefix(1);
  if (text.empty()) throw Failure(type_mismatch);
  std::int64_t exponent = 0;
  for (const char c : text) {
    if (!is_digit(c)) throw Failure(type_mismatch);
    append_digit(exponent, c);
  }
  return negative ? -exponent : exponent;
}

double decimal_number(std::string_view text, Separators separators) {
  Decimal number;
  bool after_point = false;
  for (; !text.empty(); text.remove_prefix(1)) {
    const char c = text.front();
    if (is_digit(c)) {
      number.digits += c;
      if (after_point) --number.exponent;
    } else if (c == separators.decimal && !after_point) {
      after_point = true;
    } else if (c != separators.group || number.digits.empty()) {
      break;
    }
  }
  if (number.digits.empty()) throw Failure(type_mismatch);
  if (!text.empty()) {
    if (!is_exponent_mark(text.front())) throw Failure(type_mismatch);
    number.exponent += exponent_of(text.substr(1));
  }
  return to_double(number);
}

double radix_number(std::string_view text) {
  if (text.find_first_of(blank_characters) != std::string_view::npos) throw Failure(type_mismatch);
  const RadixNumber number = read_radix(text);
  if (!number.has_digits || !number.rest.empty()) throw Failure(type_mismatch);
  return number.value;
}

}  // namespace

double strict_number(std::string_view text, Separators separators) {
  const Bare number = bare(text);
  const double value = number.text.starts_with('&') ? radix_number(number.text)
                                                    : decimal_number(number.text, separators);
  return number.negative ? -value : value;
}

}  // namespace velmar::basic
