#pragma once

#include <cstdint>
#include <string_view>

namespace velmar::embedded {

/// A value of the SaveAsType enumeration: a file format and its release.
struct SaveFormat {
  std::int32_t type;
  std::string_view extension;  // ".dxf"
  std::string_view version;    // "AC1015"
};

/// The host's own default: the drawing format of the 2004 release.
inline constexpr std::int32_t native_save_type = 24;

/// Null for a number that is none of the enumeration.
const SaveFormat* find_save_format(std::int32_t type);

}  // namespace velmar::embedded
