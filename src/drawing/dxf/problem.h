#pragma once

#include <numbers>
#include <string>
#include <string_view>

#include "drawing/dxf/record_tags.h"

namespace velmar::drawing::dxf {

/// A value that is not what its group code demands.
struct Problem {
  std::uint32_t offset = 0;  // within the record
  std::string text;          // "group 10: expected a number, found "abc""
};

Problem problem_at(const RecordTags& record, const Tag& tag, std::string_view expected);

inline constexpr double radians_of_degree = std::numbers::pi / 180;

}  // namespace velmar::drawing::dxf
