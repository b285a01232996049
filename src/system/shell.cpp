#include "system/shell.h"

#include <fcntl.h>
#include <spawn.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>

#include "basic/failure.h"
#include "system/user_folders.h"

namespace velmar::system {
namespace {

bool has_display() {
  for (const char* variable : {"DISPLAY", "WAYLAND_DISPLAY"}) {
    const char* const value = std::getenv(variable);
    if (value != nullptr && *value != '\0') return true;
  }
  return false;
}

/// Away from the terminal, so that it neither writes there nor ends with it.
bool start_detached(const std::array<const char*, 3>& words) {
  posix_spawn_file_actions_t actions;
  posix_spawnattr_t attributes;
  ::posix_spawn_file_actions_init(&actions);
  ::posix_spawnattr_init(&attributes);
  ::posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDWR, 0);
  ::posix_spawn_file_actions_adddup2(&actions, STDIN_FILENO, STDOUT_FILENO);
  ::posix_spawn_file_actions_adddup2(&actions, STDIN_FILENO, STDERR_FILENO);
  sigset_t usual;
  ::sigemptyset(&usual);
  ::sigaddset(&usual, SIGPIPE);
  ::posix_spawnattr_setsigdefault(&attributes, &usual);
  ::posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGDEF);
  pid_t process = 0;
  const int error = ::posix_spawnp(&process, words[0], &actions, &attributes,
                                   const_cast<char* const*>(words.data()), environ);
  ::posix_spawnattr_destroy(&attributes);
  ::posix_spawn_file_actions_destroy(&actions);
  return error == 0;
}

}  // namespace

std::string special_folder_path(std::int32_t number) {
  constexpr std::int32_t application_data = 26;
  return number == application_data ? data_folder().string() : std::string();
}

void show_folder(std::string_view folder) {
  const std::string path(folder);
  if (!has_display()) {
    std::fputs((path + "\n").c_str(), stderr);
  } else if (!start_detached({"xdg-open", path.c_str(), nullptr})) {
    throw basic::Failure(basic::file_not_found);
  }
}

}  // namespace velmar::system
