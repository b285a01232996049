#include "com/server/module.h"

#include <atomic>
#include <string>
#include <system_error>

namespace velmar::com {
namespace {

std::atomic<long> uses = 0;

HMODULE this_module() {
  HMODULE module = nullptr;
  const auto in_this_module = reinterpret_cast<LPCWSTR>(&uses);
  GetModuleHandleExW(
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
      in_this_module, &module);
  return module;
}

}  // namespace

ModuleUse::ModuleUse() { ++uses; }
ModuleUse::~ModuleUse() { --uses; }
bool ModuleUse::any() { return uses != 0; }

void lock_module(bool locked) { uses += locked ? 1 : -1; }

std::filesystem::path module_path() {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length =
        GetModuleFileNameW(this_module(), path.data(), static_cast<DWORD>(path.size()));
    if (length == 0) {
      throw std::system_error(static_cast<int>(GetLastError()), std::system_category());
    }
    if (length < path.size()) return path.substr(0, length);
    path.resize(path.size() * 2);
  }
}

}  // namespace velmar::com
