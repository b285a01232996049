#pragma once

#include <string_view>

namespace velmar::drawing {

/// Takes the first character off UTF-8 text. A byte that begins no character is one by itself, the
/// replacement character U+FFFD.
char32_t next_character(std::string_view& text);

bool is_blank(char32_t character);
/// Chinese, Japanese, Korean: drawn on a square, and a line may end before and behind it.
bool is_wide(char32_t character);
/// Takes no room: combining marks, control characters.
bool is_weightless(char32_t character);

}  // namespace velmar::drawing
