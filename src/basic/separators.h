#pragma once

namespace velmar::basic {

/// The marks of the user's locale inside a number: the decimal mark, and the one that groups
/// digits.
struct Separators {
  char decimal = '.';
  char group = ',';
};

}  // namespace velmar::basic
