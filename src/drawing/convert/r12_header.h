#pragma once

#include <string_view>

namespace velmar::drawing {

/// Whether R12 has a header variable ("$CLAYER").
bool is_r12_variable(std::string_view name);
/// Whether later releases have it no more.
bool is_r12_variable_only(std::string_view name);
/// The version that a variable came with; that of R12 for those that are not listed.
std::string_view first_version_of_variable(std::string_view name);

}  // namespace velmar::drawing
