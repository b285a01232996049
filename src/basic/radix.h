#pragma once

#include <string_view>

namespace velmar::basic {

struct RadixNumber {
  double value = 0;
  bool has_digits = false;
  std::string_view rest;  // what follows the number and its type character
};

/// Reads a number that begins with &H (hexadecimal) or &O (octal) in either case; blanks between
/// digits are skipped. The value is a signed 16-bit integer (&HFFFF is -1), or a signed 32-bit one
/// when it needs more bits or a "&" follows (&HFFFF& is 65535). A "%" that follows insists on 16
/// bits. What does not fit is failure 6. With `type_characters` false, "%" and "&" after the digits
/// mean nothing.
RadixNumber read_radix(std::string_view text, bool type_characters = true);

}  // namespace velmar::basic
