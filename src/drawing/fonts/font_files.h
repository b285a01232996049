#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

namespace velmar::drawing {

/// The file of that name ("arial.ttf", in any letter case) in the system's and the user's folders
/// of fonts. They are looked through once, when it is first asked for.
std::optional<std::filesystem::path> find_font_file(std::string_view name);

}  // namespace velmar::drawing
