#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "com/registration/registry.h"

/// What the registry says of the published class, for the bitness of this process. The keys of the
/// class and of the interface exist once for each bitness; program identifier and type library are
/// shared.
namespace velmar::com {

std::vector<RegistryEntry> class_entries(const std::filesystem::path& dll);

std::wstring class_key();
std::wstring interface_key();
std::wstring program_id_key();
std::wstring library_key();
/// The key that has one key for each bitness which is registered.
std::wstring library_systems_key();
std::wstring library_system_key();

}  // namespace velmar::com
