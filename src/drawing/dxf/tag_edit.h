#pragma once

#include <cstdint>
#include <string>

namespace velmar::drawing::dxf {

/// Bytes of a record that other ones replace.
struct TagEdit {
  std::uint32_t at = 0, length = 0;
  std::string bytes;
};

}  // namespace velmar::drawing::dxf
