#include <windows.h>

#include "embedded/program_path.h"

namespace velmar::embedded {

std::filesystem::path program_path() {
  constexpr DWORD longest_path = 32768;
  std::wstring path(longest_path, L'\0');
  path.resize(::GetModuleFileNameW(nullptr, path.data(), longest_path));
  return path;
}

}  // namespace velmar::embedded
