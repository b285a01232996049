#pragma once

#include <windows.h>

#include <string>
#include <vector>

/// Values below a key of the registry, by path. A function that cannot do its work fails with
/// std::system_error, which holds the system's code.
namespace velmar::com {

/// A text value of a key; the key's own value where `name` is empty.
struct RegistryEntry {
  std::wstring key;
  std::wstring name;
  std::wstring text;
};

/// One of the two places that hold classes, as the running process sees it: for all users, or for
/// this one alone, where they win.
enum class Classes { of_machine, of_user };

/// Creates keys that are missing.
void write(Classes classes, const std::vector<RegistryEntry>& entries);

/// With all below it; a key that is not there is no failure.
void erase_key(Classes classes, const std::wstring& key);

bool has_key(Classes classes, const std::wstring& key);
bool has_subkeys(Classes classes, const std::wstring& key);

}  // namespace velmar::com
