#include "com/registration/registry.h"

#include <system_error>

namespace velmar::com {
namespace {

/// Fails for a code that is neither success nor "not there"; whether it was success.
bool found(LSTATUS code) {
  if (code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND) return false;
  if (code != ERROR_SUCCESS) throw std::system_error(code, std::system_category());
  return true;
}

class Key {
 public:
  Key() = default;
  Key(const Key&) = delete;
  Key& operator=(const Key&) = delete;
  ~Key() {
    if (key_) RegCloseKey(key_);
  }
  HKEY get() const { return key_; }
  HKEY* put() { return &key_; }

 private:
  HKEY key_ = nullptr;
};

HKEY root(Classes classes) {
  return classes == Classes::of_machine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
}

std::wstring below_classes(const std::wstring& key) { return L"Software\\Classes\\" + key; }

bool open(Classes classes, const std::wstring& path, Key& key) {
  return found(RegOpenKeyExW(root(classes), below_classes(path).c_str(), 0, KEY_READ, key.put()));
}

}  // namespace

void write(Classes classes, const std::vector<RegistryEntry>& entries) {
  for (const RegistryEntry& entry : entries) {
    Key key;
    found(RegCreateKeyExW(root(classes), below_classes(entry.key).c_str(), 0, nullptr, 0, KEY_WRITE,
                          nullptr, key.put(), nullptr));
    const auto* const bytes = reinterpret_cast<const BYTE*>(entry.text.c_str());
    const auto size = static_cast<DWORD>((entry.text.size() + 1) * sizeof(wchar_t));
    found(RegSetValueExW(key.get(), entry.name.c_str(), 0, REG_SZ, bytes, size));
  }
}

void erase_key(Classes classes, const std::wstring& key) {
  const std::wstring path = below_classes(key);
  if (found(RegDeleteTreeW(root(classes), path.c_str()))) {
    found(RegDeleteKeyW(root(classes), path.c_str()));
  }
}

bool has_key(Classes classes, const std::wstring& key) {
  Key opened;
  return open(classes, key, opened);
}

bool has_subkeys(Classes classes, const std::wstring& key) {
  Key opened;
  if (!open(classes, key, opened)) return false;
  DWORD count = 0;
  found(RegQueryInfoKeyW(opened.get(), nullptr, nullptr, nullptr, &count, nullptr, nullptr, nullptr,
                         nullptr, nullptr, nullptr, nullptr));
  return count != 0;
}

}  // namespace velmar::com
