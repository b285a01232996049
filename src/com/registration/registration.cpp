#include "com/registration/registration.h"

#include <cwchar>
#include <system_error>

#include "com/registration/class_entries.h"

namespace velmar::com {
namespace {

bool user_only() {
  wchar_t scope[8] = {};
  const DWORD length = GetEnvironmentVariableW(L"VELMAR_REGISTER", scope, 8);
  return length > 0 && length < 8 && std::wcscmp(scope, L"user") == 0;
}

void erase_entries(Classes classes) {
  for (const std::wstring& key : {class_key(), interface_key(), library_system_key()}) {
    if (has_key(classes, key)) erase_key(classes, key);
  }
  if (has_subkeys(classes, library_systems_key())) return;
  for (const std::wstring& key : {program_id_key(), library_key()}) {
    if (has_key(classes, key)) erase_key(classes, key);
  }
}

HRESULT code_of(const std::system_error& error) {
  return HRESULT_FROM_WIN32(static_cast<unsigned long>(error.code().value()));
}

template <class Work>
HRESULT attempt(Work&& work) {
  try {
    work();
    return S_OK;
  } catch (const std::system_error& error) {
    return code_of(error);
  }
}

HRESULT register_for(Classes classes, const std::filesystem::path& dll) {
  const HRESULT written = attempt([&] { write(classes, class_entries(dll)); });
  if (FAILED(written)) attempt([&] { erase_entries(classes); });
  return written;
}

}  // namespace

HRESULT register_class(const std::filesystem::path& dll) {
  if (user_only()) return register_for(Classes::of_user, dll);
  const HRESULT result = register_for(Classes::of_machine, dll);
  if (result == E_ACCESSDENIED) return register_for(Classes::of_user, dll);
  // An earlier registration of this user alone would win.
  if (SUCCEEDED(result)) attempt([&] { erase_entries(Classes::of_user); });
  return result;
}

HRESULT unregister_class() {
  const HRESULT result = attempt([&] { erase_entries(Classes::of_user); });
  if (user_only()) return result;
  const HRESULT of_machine = attempt([&] { erase_entries(Classes::of_machine); });
  return FAILED(result) ? result : of_machine;
}

}  // namespace velmar::com
