#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "component/system.h"

namespace velmar {

/// The files directly in the folder whose extension, in upper case, is this one; in the file
/// system's order. Error 76 where there is no such folder.
std::vector<std::string> files_of_type(const System& system, std::string_view folder,
                                       std::string_view extension);

}  // namespace velmar
