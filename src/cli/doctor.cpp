#include "cli/doctor.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <string_view>
#include <system_error>

namespace velmar::cli {
namespace {

namespace fs = std::filesystem;

std::string variable(const char* name) {
  const char* const value = std::getenv(name);
  return value ? value : "";
}

fs::path settings_folder() {
  const std::string configuration = variable("XDG_CONFIG_HOME");
  if (!configuration.empty()) return fs::path(configuration) / "velmar";
  const std::string home = variable("HOME");
  return home.empty() ? fs::path() : fs::path(home) / ".config" / "velmar";
}

/// The folder itself, or the nearest one above it, where it would be made.
fs::path nearest_existing(fs::path folder) {
  std::error_code ignored;
  while (folder.has_relative_path() && !fs::exists(folder, ignored)) folder = folder.parent_path();
  return folder;
}

Finding settings() {
  constexpr std::string_view subject = "remembered answers";
  const fs::path folder = settings_folder();
  if (folder.empty()) {
    return {std::string(subject), Finding::State::wrong,
            "neither XDG_CONFIG_HOME nor HOME says where they belong"};
  }
  const fs::path existing = nearest_existing(folder);
  if (::access(existing.c_str(), W_OK | X_OK) != 0) {
    return {std::string(subject), Finding::State::wrong,
            existing.string() + " cannot be written to, so they are lost"};
  }
  return {std::string(subject), Finding::State::well,
          "in " + folder.string() + (existing == folder ? "" : ", made when first needed")};
}

bool is_in_path(const char* program) {
  std::istringstream folders(variable("PATH"));
  for (std::string folder; std::getline(folders, folder, ':');) {
    if (::access((fs::path(folder) / program).c_str(), X_OK) == 0) return true;
  }
  return false;
}

Finding file_browser() {
  const std::string subject = "file browser";
  if (!is_in_path("xdg-open")) {
    return {subject, Finding::State::absent,
            "there is no xdg-open; folders are named instead of shown"};
  }
  if (variable("DISPLAY").empty() && variable("WAYLAND_DISPLAY").empty()) {
    return {subject, Finding::State::absent, "there is no display; folders are named, not shown"};
  }
  return {subject, Finding::State::well, "xdg-open shows folders"};
}

}  // namespace

std::vector<Finding> examine() {
  return {settings(),
          file_browser(),
          {"component", Finding::State::absent, "macros call it in CAD programs on Windows only"}};
}

}  // namespace velmar::cli
