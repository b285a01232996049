#pragma once

#include <string>
#include <string_view>

#include "basic/utf16.h"

namespace velmar::system {

/// A text as the Win32 API takes it, and back.
inline std::wstring wide(std::string_view text) {
  const std::u16string units = basic::to_utf16(text);
  return {units.begin(), units.end()};
}
inline std::string narrow(std::wstring_view text) {
  return basic::to_utf8(std::u16string(text.begin(), text.end()));
}

}  // namespace velmar::system
