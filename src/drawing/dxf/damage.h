#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace velmar::drawing::dxf {

/// Damage that was met and passed over: where, and what is wrong.
struct Damage {
  std::size_t offset = 0;
  std::string text;
};

inline constexpr const char* rest_is_kept = "; the rest of this record is kept as it is";

/// A record's name has letters; a group code never has. So this tells a group 0 from a value 0
/// where the pairs have got out of step.
bool plausible_name(std::string_view name);
/// Text of a file for a message, without control characters.
std::string shown(std::string_view text);
/// A group 0 whose value is no name.
Damage no_name(std::size_t offset, std::string_view found);

}  // namespace velmar::drawing::dxf
