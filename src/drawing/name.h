#pragma once

#include <string_view>

namespace velmar::drawing {

/// Whether two names of layers, blocks, styles are the same: without regard to the case of ASCII
/// letters, and of others as far as the C library knows them.
bool same_name(std::string_view a, std::string_view b);

}  // namespace velmar::drawing
