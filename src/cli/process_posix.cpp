#include <fcntl.h>
#include <sched.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>

#include <cstring>
#include <thread>

#include "cli/process.h"
#include "drawing/error.h"

extern char** environ;

namespace velmar::cli {

struct Process::Handle {
  pid_t id = 0;
  std::optional<int> ended;
};

Process::Process(const std::vector<std::string>& command, const std::filesystem::path& output,
                 const std::filesystem::path& errors)
    : handle_(std::make_unique<Handle>()) {
  std::vector<char*> words;
  for (const std::string& word : command) words.push_back(const_cast<char*>(word.c_str()));
  words.push_back(nullptr);

  constexpr int writing = O_WRONLY | O_CREAT | O_TRUNC, private_file = 0600;
  posix_spawn_file_actions_t files;
  posix_spawn_file_actions_init(&files);
  posix_spawn_file_actions_addopen(&files, 0, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&files, 1, output.c_str(), writing, private_file);
  posix_spawn_file_actions_addopen(&files, 2, errors.c_str(), writing, private_file);
  posix_spawnattr_t attributes;
  posix_spawnattr_init(&attributes);
  // A group of its own: Ctrl-C at the terminal is for us to pass on.
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP);
  const int error = posix_spawn(&handle_->id, words[0], &files, &attributes, words.data(), environ);
  posix_spawnattr_destroy(&attributes);
  posix_spawn_file_actions_destroy(&files);
  if (error != 0) {
    throw drawing::Error(command.front() + ": does not start: " + std::strerror(error));
  }
}

Process::~Process() {
  if (ended()) return;
  kill();
  ::waitpid(handle_->id, nullptr, 0);
}

std::optional<int> Process::ended() {
  if (handle_->ended) return handle_->ended;
  int status = 0;
  if (::waitpid(handle_->id, &status, WNOHANG) != handle_->id) return std::nullopt;
  constexpr int crashed = 256;
  handle_->ended = WIFEXITED(status) ? WEXITSTATUS(status) : crashed + WTERMSIG(status);
  return handle_->ended;
}

void Process::kill() {
  if (!handle_->ended) ::kill(handle_->id, SIGKILL);
}

std::string own_program() { return std::filesystem::read_symlink("/proc/self/exe").string(); }

unsigned processors() {
  cpu_set_t allowed;
  if (sched_getaffinity(0, sizeof allowed, &allowed) == 0) {
    return static_cast<unsigned>(CPU_COUNT(&allowed));
  }
  return std::max(1U, std::thread::hardware_concurrency());
}

}  // namespace velmar::cli
