#include "cli/command_line.h"

namespace velmar::cli {

std::vector<std::string> command_line(int argc, char** argv) { return {argv, argv + argc}; }

}  // namespace velmar::cli
