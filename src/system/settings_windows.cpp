#include <windows.h>

#include "basic/failure.h"
#include "system/settings.h"
#include "system/wide_windows.h"

namespace velmar::system {
namespace {

/// Where classic Basic keeps the settings of its programs.
std::wstring key_of(const SettingName& name) {
  return L"Software\\VB and VBA Program Settings\\" + wide(name.application) + L"\\" +
         wide(name.section);
}

void require(LSTATUS status) {
  if (status != ERROR_SUCCESS) throw basic::Failure(basic::path_file_access);
}

}  // namespace

std::string read_setting(const SettingName& name) {
  const std::wstring key = key_of(name), value_name = wide(name.key);
  DWORD size = 0;
  const auto read = [&](void* to) {
    return ::RegGetValueW(HKEY_CURRENT_USER, key.c_str(), value_name.c_str(), RRF_RT_REG_SZ,
                          nullptr, to, &size);
  };
  if (read(nullptr) != ERROR_SUCCESS) return {};
  std::wstring value(size / sizeof(wchar_t), L'\0');
  if (read(value.data()) != ERROR_SUCCESS) return {};
  value.resize(size / sizeof(wchar_t));
  while (value.ends_with(L'\0')) value.pop_back();
  return narrow(value);
}

void write_setting(const SettingName& name, std::string_view value) {
  HKEY key = nullptr;
  require(::RegCreateKeyExW(HKEY_CURRENT_USER, key_of(name).c_str(), 0, nullptr, 0, KEY_SET_VALUE,
                            nullptr, &key, nullptr));
  const std::wstring text = wide(value);
  const LSTATUS status = ::RegSetValueExW(key, wide(name.key).c_str(), 0, REG_SZ,
                                          reinterpret_cast<const BYTE*>(text.c_str()),
                                          static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
  ::RegCloseKey(key);
  require(status);
}

}  // namespace velmar::system
