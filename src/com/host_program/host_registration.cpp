#include "com/host_program/host_registration.h"

#include <system_error>

#include "com/automation/bstr.h"
#include "com/host_program/host_ids.h"
#include "com/registration/registry.h"

namespace velmar::com {
namespace {

std::wstring class_number() { return L"{" + to_wide(host_class_id) + L"}"; }
std::wstring class_key() { return L"CLSID\\" + class_number(); }

std::vector<RegistryEntry> entries(const std::filesystem::path& program) {
  const std::wstring name = to_wide(host_program_id), description = to_wide(host_description);
  const std::wstring command = L"\"" + program.wstring() + L"\" /Automation";
  return {{name, L"", description},
          {name + L"\\CLSID", L"", class_number()},
          {class_key(), L"", description},
          {class_key() + L"\\ProgID", L"", name},
          {class_key() + L"\\LocalServer32", L"", command}};
}

void erase_from(Classes classes) {
  for (const std::wstring& key : {class_key(), to_wide(host_program_id)}) {
    if (has_key(classes, key)) erase_key(classes, key);
  }
}

bool is_refusal(const std::system_error& error) {
  return error.code().value() == ERROR_ACCESS_DENIED;
}

}  // namespace

void register_host(const std::filesystem::path& program) {
  try {
    write(Classes::of_machine, entries(program));
  } catch (const std::system_error& error) {
    if (!is_refusal(error)) throw;
    return write(Classes::of_user, entries(program));
  }
  erase_from(Classes::of_user);  // an earlier registration of this user alone would win
}

void unregister_host() {
  erase_from(Classes::of_user);
  erase_from(Classes::of_machine);
}

}  // namespace velmar::com
