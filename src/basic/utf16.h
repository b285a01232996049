#pragma once

#include <string>
#include <string_view>

namespace velmar::basic {

/// Never fail. A half of a surrogate pair is kept as its three bytes, as if it were a character,
/// and two halves that meet again become one character. A byte that is not UTF-8 becomes U+FFFD.
std::u16string to_utf16(std::string_view text);
std::string to_utf8(std::u16string_view text);

constexpr bool is_high_surrogate(char16_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
constexpr bool is_low_surrogate(char16_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

/// The character that begins at a unit of `text`: a pair, or the unit alone.
char32_t character_at(std::u16string_view text, std::size_t position);
/// Appends one or two units.
void append(std::u16string& text, char32_t character);

}  // namespace velmar::basic
