#include <windows.h>

#include <array>
#include <filesystem>

#include "drawing/windows_handle.h"

namespace velmar::drawing {

WindowsHandle::~WindowsHandle() {
  if (valid()) ::CloseHandle(handle_);
}

std::string last_windows_error() {
  const DWORD number = ::GetLastError();
  std::array<wchar_t, 512> buffer{};
  const DWORD length =
      ::FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, number,
                       0, buffer.data(), static_cast<DWORD>(buffer.size()), nullptr);
  std::string text = std::filesystem::path(std::wstring(buffer.data(), length)).string();
  text.erase(text.find_last_not_of("\r\n .") + 1);
  return text.empty() ? "error " + std::to_string(number) : text;
}

}  // namespace velmar::drawing
