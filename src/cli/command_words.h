#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace velmar::cli {

/// The words of a command line. Double quotes hold blanks together and are dropped; single quotes
/// around a whole word hold blanks together and stay, for read_arguments. Fails with UsageError
/// where a quote is not closed.
std::vector<std::string> command_words(std::string_view line);

}  // namespace velmar::cli
