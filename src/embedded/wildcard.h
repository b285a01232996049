#pragma once

#include <string_view>

namespace velmar::embedded {

/// Whether the text is of the form of one of the patterns, which have commas between them. `*`
/// stands for any characters, `?` for one; ASCII letter case does not count.
bool matches(std::string_view patterns, std::string_view text);

}  // namespace velmar::embedded
