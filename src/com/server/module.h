#pragma once

#include <windows.h>

#include <filesystem>

/// The DLL as a whole.
namespace velmar::com {

/// Counts something that keeps the DLL loaded, for as long as it lives: an object, a lock.
class ModuleUse {
 public:
  ModuleUse();
  ~ModuleUse();
  ModuleUse(const ModuleUse&) = delete;
  ModuleUse& operator=(const ModuleUse&) = delete;

  static bool any();
};

/// LockServer: locks are counted apart from who asked for them.
void lock_module(bool locked);

/// The file that this code was loaded from.
std::filesystem::path module_path();

}  // namespace velmar::com
