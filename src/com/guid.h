#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <string_view>

#include "com/published_ids.h"

namespace velmar::com {

/// The number that is written XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX.
consteval GUID guid(std::string_view text) {
  std::uint8_t bytes[16] = {};
  std::size_t digits = 0;
  for (const char mark : text) {
    if (mark == '-') continue;
    const int digit = mark <= '9' ? mark - '0' : mark - 'A' + 10;
    if (digit < 0 || digit > 15 || digits >= 32) throw "not a GUID";
    bytes[digits / 2] = static_cast<std::uint8_t>(bytes[digits / 2] * 16 + digit);
    ++digits;
  }
  if (digits != 32) throw "not a GUID";
  GUID number{};
  number.Data1 = static_cast<unsigned long>(bytes[0]) << 24 |
                 static_cast<unsigned long>(bytes[1]) << 16 |
                 static_cast<unsigned long>(bytes[2]) << 8 | bytes[3];
  number.Data2 = static_cast<unsigned short>(bytes[4] << 8 | bytes[5]);
  number.Data3 = static_cast<unsigned short>(bytes[6] << 8 | bytes[7]);
  for (int i = 0; i < 8; ++i) number.Data4[i] = bytes[8 + i];
  return number;
}

inline constexpr GUID library_guid = guid(library_id);
inline constexpr GUID class_guid = guid(class_id);
inline constexpr GUID interface_guid = guid(interface_id);

}  // namespace velmar::com
