#include "drawing/fonts/font_files.h"

#include <array>
#include <cstdlib>
#include <map>
#include <string>
#include <vector>

#include "drawing/fonts/lower_case.h"

namespace velmar::drawing {
namespace {

using Path = std::filesystem::path;
using Files = std::map<std::string, Path, std::less<>>;

/// A folder below one that the environment names.
struct UserFolder {
  const char* variable;
  const char* below;
};
constexpr std::array user_folders{UserFolder{"HOME", ".local/share/fonts"},
                                  UserFolder{"HOME", ".fonts"}, UserFolder{"HOME", "Library/Fonts"},
                                  UserFolder{"LOCALAPPDATA", "Microsoft/Windows/Fonts"},
                                  UserFolder{"WINDIR", "Fonts"}};
constexpr std::array system_folders{"/usr/share/fonts", "/usr/local/share/fonts", "/Library/Fonts",
                                    "/System/Library/Fonts"};

std::vector<Path> folders() {
  std::vector<Path> found;
  for (const UserFolder& folder : user_folders) {
    const char* above = std::getenv(folder.variable);
    if (above && *above) found.push_back(Path(above) / folder.below);
  }
  found.insert(found.end(), system_folders.begin(), system_folders.end());
  return found;
}

bool is_font(const Path& file) {
  const std::string extension = lower_case(file.extension().string());
  return extension == ".ttf" || extension == ".otf" || extension == ".ttc";
}

/// What cannot be read is passed over. The first file of a name counts.
void add_files(const Path& folder, Files& files) {
  std::error_code error;
  std::filesystem::recursive_directory_iterator at(
      folder, std::filesystem::directory_options::skip_permission_denied, error);
  while (!error && at != std::filesystem::recursive_directory_iterator()) {
    if (is_font(at->path())) files.emplace(lower_case(at->path().filename().string()), at->path());
    at.increment(error);
  }
}

Files all_files() {
  Files files;
  for (const Path& folder : folders()) add_files(folder, files);
  return files;
}

}  // namespace

std::optional<Path> find_font_file(std::string_view name) {
  static const Files files = all_files();
  const auto found = files.find(lower_case(name));
  if (found == files.end()) return std::nullopt;
  return found->second;
}

}  // namespace velmar::drawing
