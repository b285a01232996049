#pragma once

namespace velmar::basic {

// The ANSI code page 1252 (Western European), which is the user's wherever the system has none.

/// The code, 0 to 255, of a UTF-16 unit; 63 (a question mark) for one that the code page does not
/// have.
int ansi_code(char16_t unit);
/// The character of a code; failure 5 outside 0 to 255.
char16_t ansi_character(int code);

}  // namespace velmar::basic
