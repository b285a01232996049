#include "basic/val.h"

#include <algorithm>
#include <cstdint>

#include "basic/decimal.h"
#include "basic/failure.h"
#include "basic/radix.h"
#include "basic/rounding.h"

namespace velmar::basic {
namespace {

constexpr std::string_view blanks = "\t\n\r ", wide_blank = "\u3000";

std::string_view without_leading_blanks(std::string_view text) {
  while (!text.empty()) {
    if (blanks.find(text.front()) != std::string_view::npos) {
      text.remove_prefix(1);
    } else if (text.starts_with(wide_blank)) {
      text.remove_prefix(wide_blank.size());
    } else {
      break;
    }
  }
  return text;
}

/// The characters of a number one by one, as if no blanks stood between them.
class Reader {
 public:
  explicit Reader(std::string_view text) : text_(text) { skip_blanks(); }
  /// NUL at the end.
  char peek() const { return text_.empty() ? '\0' : text_.front(); }
  void next() {
    text_.remove_prefix(1);
    skip_blanks();
  }
  /// Passes one sign, if there is one; true for minus.
  bool minus() {
    const char c = peek();
    if (c == '-' || c == '+') next();
    return c == '-';
  }

 private:
  void skip_blanks() {
    text_.remove_prefix(std::min(text_.find_first_not_of(blanks), text_.size()));
  }
  std::string_view text_;
};

void read_mantissa(Reader& reader, Decimal& number) {
  bool after_point = false;
  for (;; reader.next()) {
    const char c = reader.peek();
    if (is_digit(c)) {
      number.digits += c;
      if (after_point) --number.exponent;
    } else if (c == '.' && !after_point) {
      after_point = true;
    } else {
      return;
    }
  }
}

/// "1E" and "3D+" have an exponent of 0.
std::int64_t read_exponent(Reader& reader) {
  const bool negative = reader.minus();
  std::int64_t exponent = 0;
  for (; is_digit(reader.peek()); reader.next()) append_digit(exponent, reader.peek());
  return negative ? -exponent : exponent;
}

double typed(double value, char type, bool decimals) {
  if (type != '%' && type != '&') return value;
  if (decimals) throw Failure(type_mismatch);
  return type == '%' ? to_int16(value) : to_int32(value);
}

}  // namespace

double val(std::string_view text, TypeCharacter type_character) {
  text = without_leading_blanks(text);
  const bool checked = type_character == TypeCharacter::checked;
  if (text.starts_with('&')) return read_radix(text, checked).value;
  Reader reader(text);
  Decimal number{.digits = {}, .exponent = 0, .negative = reader.minus()};
  read_mantissa(reader, number);
  const bool decimals = number.exponent < 0;
  if (is_exponent_mark(reader.peek())) {
    reader.next();
    number.exponent += read_exponent(reader);
  }
  const double value = to_double(number);
  return checked ? typed(value, reader.peek(), decimals) : value;
}

}  // namespace velmar::basic
