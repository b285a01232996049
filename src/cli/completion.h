#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "cli/line_editor.h"
#include "cli/run.h"

namespace velmar::cli {

/// The words that the whole line is the beginning of, in any letter case.
Completions beginning(std::string_view line, const std::vector<std::string>& words);

/// The names of layers, to complete an argument or an answer that is one.
std::vector<std::string> layer_names(const Run& run);

/// What a command line could go on with: names of methods and `commands`, then names of files,
/// methods or layers as the command takes them.
Completions complete_command(std::string_view line, const std::vector<std::string>& commands,
                             const Run& run);

}  // namespace velmar::cli
