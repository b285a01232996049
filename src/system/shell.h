#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace velmar::system {

/// The path of a special folder by its shell number; empty where there is none. Outside Windows
/// there is only 26, the folder of the program's data.
std::string special_folder_path(std::int32_t number);

/// Starts the file browser on the folder without waiting for it; error 53 where it does not start.
void show_folder(std::string_view folder);

}  // namespace velmar::system
