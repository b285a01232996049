#include "com/registration/class_entries.h"

#include <string_view>

#include "com/automation/bstr.h"
#include "com/published_ids.h"

namespace velmar::com {
namespace {

/// The system's own marshaller for interfaces that a type library describes.
constexpr const wchar_t* universal_marshaller = L"{00020424-0000-0000-C000-000000000046}";
constexpr const wchar_t* automation_objects = L"{40FC6ED5-2438-11CF-A3DB-080036F12502}";

std::wstring braced(std::string_view id) { return L"{" + to_wide(id) + L"}"; }

std::wstring library_version_key() { return library_key() + L"\\" + to_wide(version); }

}  // namespace

std::wstring class_key() { return L"CLSID\\" + braced(class_id); }
std::wstring interface_key() { return L"Interface\\" + braced(interface_id); }
std::wstring program_id_key() { return to_wide(program_id); }
std::wstring library_key() { return L"TypeLib\\" + braced(library_id); }
std::wstring library_systems_key() { return library_version_key() + L"\\0"; }
std::wstring library_system_key() {
  return library_systems_key() + (sizeof(void*) == 8 ? L"\\win64" : L"\\win32");
}

std::vector<RegistryEntry> class_entries(const std::filesystem::path& dll) {
  const std::wstring file = dll.wstring(), name = to_wide(program_id);
  const std::wstring description = to_wide(class_description), library = braced(library_id);
  return {
      {class_key(), L"", name},
      {class_key() + L"\\InprocServer32", L"", file},
      {class_key() + L"\\InprocServer32", L"ThreadingModel", L"Apartment"},
      {class_key() + L"\\ProgID", L"", name},
      {class_key() + L"\\TypeLib", L"", library},
      {class_key() + L"\\Version", L"", to_wide(version)},
      {class_key() + L"\\Programmable", L"", L""},
      {class_key() + L"\\Implemented Categories\\" + automation_objects, L"", L""},
      {program_id_key(), L"", description},
      {program_id_key() + L"\\CLSID", L"", braced(class_id)},
      {library_version_key(), L"", description},
      {library_version_key() + L"\\FLAGS", L"", L"0"},
      {library_version_key() + L"\\HELPDIR", L"", dll.parent_path().wstring()},
      {library_system_key(), L"", file},
      {interface_key(), L"", to_wide(interface_name)},
      {interface_key() + L"\\ProxyStubClsid32", L"", universal_marshaller},
      {interface_key() + L"\\TypeLib", L"", library},
      {interface_key() + L"\\TypeLib", L"Version", to_wide(version)},
  };
}

}  // namespace velmar::com
