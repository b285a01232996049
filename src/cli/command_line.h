#pragma once

#include <string>
#include <vector>

namespace velmar::cli {

/// The words of the command line in UTF-8, the program's name first, from what main was given or
/// from where the operating system has more than that.
std::vector<std::string> command_line(int argc, char** argv);

}  // namespace velmar::cli
