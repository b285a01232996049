#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace velmar::system {

// What System promises of files. The failures are those of classic Basic.

#ifdef _WIN32
inline constexpr char separator_of_paths = '\\';
#else
inline constexpr char separator_of_paths = '/';
#endif

enum class Listed { files, folders };
/// Whole paths of what stands in the folder itself.
std::vector<std::string> list_folder(std::string_view folder, Listed what);

bool is_file(std::string_view path);
void remove_file(std::string_view path);
void rename_file(std::string_view from, std::string_view to);

/// On Windows the file is in the user's code page, the text is UTF-8 everywhere.
std::string read_text_file(std::string_view path);
void write_text_file(std::string_view path, std::string_view text);

}  // namespace velmar::system
