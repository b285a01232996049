#pragma once

#include <string_view>

namespace velmar::cli {

/// Writes results to standard output, to a terminal without anything that it would obey. A reader
/// that closed the pipe has seen enough: no failure. Fails with drawing::Error where the output
/// cannot be written otherwise (a full disk).
void print(std::string_view text);

/// Writes a message for the user to standard error, with a line end; to a terminal in red, unless
/// NO_COLOR is set.
void complain(std::string_view message);

/// Ends the program with a message and exit code 3 when a mapped file shrinks under it, and lets
/// writing to a closed pipe fail instead of killing the program.
void install_signal_handlers();

}  // namespace velmar::cli
