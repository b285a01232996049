#include <windows.h>

#include "drawing/utf8_path.h"

namespace velmar::drawing {

std::filesystem::path utf8_path(std::string_view text) {
  if (text.empty()) return {};
  const int size = static_cast<int>(text.size());
  std::wstring wide(text.size(), L'\0');
  const int length = ::MultiByteToWideChar(CP_UTF8, 0, text.data(), size, wide.data(), size);
  wide.resize(static_cast<std::size_t>(length));
  return wide;
}

}  // namespace velmar::drawing
