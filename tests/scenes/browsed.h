#pragma once

#include <string>
#include <vector>

namespace velmar {

/// The folders that were shown in the file browser, which the direct way alone knows without
/// opening one.
extern std::vector<std::string> browsed;

}  // namespace velmar
