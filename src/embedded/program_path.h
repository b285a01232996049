#pragma once

#include <filesystem>

namespace velmar::embedded {

/// The file that the running program came from; empty where the system does not tell.
std::filesystem::path program_path();

}  // namespace velmar::embedded
