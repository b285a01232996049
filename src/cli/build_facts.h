#pragma once

#include <string>

namespace velmar::cli {

/// What `--version` tells: the version, then how and for what it was built, a fact a line.
std::string version_text();

}  // namespace velmar::cli
