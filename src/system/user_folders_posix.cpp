#include <pwd.h>
#include <unistd.h>

#include <array>
#include <cstdlib>

#include "system/user_folders.h"

namespace velmar::system {
namespace {

namespace fs = std::filesystem;

fs::path home() {
  if (const char* const named = std::getenv("HOME"); named != nullptr && *named == '/') {
    return named;
  }
  std::array<char, 4096> texts{};
  passwd row{};
  passwd* found = nullptr;
  const int refused = ::getpwuid_r(::getuid(), &row, texts.data(), texts.size(), &found);
  return refused == 0 && found != nullptr ? fs::path(found->pw_dir) : fs::path();
}

/// A variable that holds no whole path counts as not set.
fs::path folder(const char* variable, const char* below_home) {
  const char* const named = std::getenv(variable);
  if (named != nullptr && *named == '/') return fs::path(named) / "velmar";
  const fs::path at_home = home();
  return at_home.empty() ? at_home : at_home / below_home / "velmar";
}

}  // namespace

fs::path configuration_folder() { return folder("XDG_CONFIG_HOME", ".config"); }

fs::path state_folder() { return folder("XDG_STATE_HOME", ".local/state"); }

fs::path data_folder() { return folder("XDG_DATA_HOME", ".local/share"); }

}  // namespace velmar::system
