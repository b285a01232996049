#pragma once

#include <windows.h>

#include <filesystem>

namespace velmar::com {

/// Registers the published class for the bitness of this process: for all users, or for this one
/// where that is refused or where the environment variable VELMAR_REGISTER is "user". Registering
/// again is no failure.
HRESULT register_class(const std::filesystem::path& dll);

/// Removes every trace of it; what both bitnesses share goes with the second one. With
/// VELMAR_REGISTER "user" only this user's. What is not registered is no failure.
HRESULT unregister_class();

}  // namespace velmar::com
