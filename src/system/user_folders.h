#pragma once

#include <filesystem>

namespace velmar::system {

// As the XDG base directory rules of freedesktop.org have them, with "velmar" below; empty where
// the user has no home. They need not exist.
std::filesystem::path configuration_folder();
std::filesystem::path data_folder();
std::filesystem::path state_folder();

}  // namespace velmar::system
