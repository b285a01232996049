#pragma once

#include <filesystem>
#include <string_view>

namespace velmar::drawing {

/// The path that a UTF-8 text names. The other way it is `path.string()`; but a path that is made
/// of a std::string directly loses what is not ASCII on Windows.
std::filesystem::path utf8_path(std::string_view text);

}  // namespace velmar::drawing
