#pragma once

#include <string>
#include <string_view>

namespace velmar::cli {

/// The text with what a terminal would obey or show out of order written as an escape ("\x1B",
/// "\u202E"): control characters, line separators, the marks of writing direction, and bytes that
/// are no UTF-8.
std::string printable(std::string_view text);

/// The same, but line feeds and tabs stay.
std::string printable_lines(std::string_view text);

}  // namespace velmar::cli
