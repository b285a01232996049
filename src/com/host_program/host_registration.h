#pragma once

#include <filesystem>

namespace velmar::com {

/// Makes the program known as the server of its class: for all users, or for this one where that is
/// refused. Registering again is no failure. Both fail with std::system_error.
void register_host(const std::filesystem::path& program);

/// What is not registered is no failure.
void unregister_host();

}  // namespace velmar::com
