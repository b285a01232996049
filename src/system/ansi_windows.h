#pragma once

#include <string>
#include <string_view>

namespace velmar::system {

/// Between UTF-8 and the ANSI code page of the system; a question mark for what it cannot hold.
std::string to_ansi(std::string_view text);
std::string from_ansi(std::string_view bytes);

}  // namespace velmar::system
