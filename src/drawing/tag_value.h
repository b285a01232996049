#pragma once

#include <cstdint>
#include <string>
#include <variant>

namespace velmar::drawing {

/// A group code with its value, decoded; texts are UTF-8.
struct TagValue {
  int code = 0;
  std::variant<std::string, double, std::int64_t> value;
  friend bool operator==(const TagValue&, const TagValue&) = default;
};

}  // namespace velmar::drawing
