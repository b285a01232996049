#pragma once

#include <cstdint>
#include <span>

namespace velmar::basic {

/// Every `step`-th character from `first` to `last` has its other case `distance` further on.
struct CaseRange {
  char32_t first, last;
  std::uint32_t step;
  std::int32_t distance;
};

// Simple_Uppercase_Mapping and Simple_Lowercase_Mapping of the Unicode Character Database 14.0
// beyond ASCII, in order. A character and its other case always take the same number of UTF-16
// units.
extern const std::span<const CaseRange> to_upper_case;
extern const std::span<const CaseRange> to_lower_case;

}  // namespace velmar::basic
