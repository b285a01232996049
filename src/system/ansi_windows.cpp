#include "system/ansi_windows.h"

#include <windows.h>

#include "system/wide_windows.h"

namespace velmar::system {

std::string to_ansi(std::string_view text) {
  const std::wstring units = wide(text);
  const auto convert = [&](char* to, int size) {
    return ::WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, units.data(),
                                 static_cast<int>(units.size()), to, size, nullptr, nullptr);
  };
  std::string bytes(static_cast<std::size_t>(convert(nullptr, 0)), '\0');
  convert(bytes.data(), static_cast<int>(bytes.size()));
  return bytes;
}

std::string from_ansi(std::string_view bytes) {
  std::wstring units(bytes.size(), L'\0');
  const int length = ::MultiByteToWideChar(CP_ACP, 0, bytes.data(), static_cast<int>(bytes.size()),
                                           units.data(), static_cast<int>(units.size()));
  units.resize(static_cast<std::size_t>(length));
  return narrow(units);
}

}  // namespace velmar::system
