#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace velmar::drawing {

/// For names of fonts and their files, which are ASCII.
inline std::string lower_case(std::string_view text) {
  std::string lower(text);
  std::ranges::transform(lower, lower.begin(), [](char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  });
  return lower;
}

}  // namespace velmar::drawing
