#pragma once

#include <string>
#include <string_view>

namespace velmar::drawing {

/// Whether two names of layers, blocks, styles are the same: without regard to the case of ASCII
/// letters, and of others as far as the C library knows them.
bool same_name(std::string_view a, std::string_view b);

/// The text that all spellings of a name have in common: equal where same_name holds.
std::string folded_name(std::string_view name);

}  // namespace velmar::drawing
