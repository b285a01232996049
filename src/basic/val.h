#pragma once

#include <string_view>

namespace velmar::basic {

/// What a "%" or "&" right after a decimal number does to the lenient reading.
enum class TypeCharacter {
  checked,  // "%" wants a 16-bit, "&" a 32-bit integer: failure 13 after decimals, else rounded,
            // failure 6 if too large
  ignored,  // ends the number like any other character
};

/// The lenient reading of a number: " 12ab" is 12, "1 2.5" is 12.5, "3D2" is 300, "&H1F" is 31, no
/// number is 0. The decimal mark is always the point. Failure 6 beyond the range of a double.
double val(std::string_view text, TypeCharacter type_character = TypeCharacter::checked);

}  // namespace velmar::basic
