#pragma once

#include <cstddef>
#include <string>

namespace velmar::drawing::dxf {

/// Damage that was met and passed over: where, and what is wrong.
struct Damage {
  std::size_t offset = 0;
  std::string text;
};

}  // namespace velmar::drawing::dxf
