#include <fcntl.h>
#include <poll.h>
#include <sched.h>
#include <signal.h>
#include <spawn.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <thread>

#include "cli/process.h"
#include "drawing/error.h"

extern char** environ;

namespace velmar::cli {
namespace {

constexpr std::string_view parent_variable = "VELMAR_PARENT";

/// The environment with what end_with_parent looks for.
std::vector<std::string> environment_of_child() {
  std::vector<std::string> all;
  for (char** each = environ; *each != nullptr; ++each) all.emplace_back(*each);
  all.push_back(std::string(parent_variable) + "=" + std::to_string(::getpid()));
  return all;
}

std::vector<char*> pointers(const std::vector<std::string>& words) {
  std::vector<char*> all;
  for (const std::string& word : words) all.push_back(const_cast<char*>(word.c_str()));
  all.push_back(nullptr);
  return all;
}

}  // namespace

struct Process::Handle {
  pid_t id = 0;
  int file = -1;  // can be waited for; -1 where the kernel has no such files
  std::optional<int> ended;

  ~Handle() {
    if (file >= 0) ::close(file);
  }
};

Process::Process(const std::vector<std::string>& command, const std::filesystem::path& output,
                 const std::filesystem::path& errors)
    : handle_(std::make_unique<Handle>()) {
  const std::vector<std::string> environment = environment_of_child();
  const std::vector<char*> words = pointers(command), variables = pointers(environment);

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
  const int error =
      posix_spawn(&handle_->id, words[0], &files, &attributes, words.data(), variables.data());
  posix_spawnattr_destroy(&attributes);
  posix_spawn_file_actions_destroy(&files);
  if (error != 0) {
    throw drawing::Error(command.front() + ": does not start: " + std::strerror(error));
  }
  handle_->file = static_cast<int>(::syscall(SYS_pidfd_open, handle_->id, 0));
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

void Process::wait_for_any(const std::vector<Process*>& running,
                           std::chrono::milliseconds at_most) {
  std::vector<pollfd> files;
  for (const Process* process : running) {
    if (process->handle_->file < 0) at_most = std::chrono::milliseconds(1);
    files.push_back({process->handle_->file, POLLIN, 0});  // -1 is passed over
  }
  ::poll(files.data(), files.size(), static_cast<int>(at_most.count()));
}

void end_with_parent() {
  const char* const parent = std::getenv(parent_variable.data());
  if (parent == nullptr) return;
  ::prctl(PR_SET_PDEATHSIG, SIGKILL);
  // It may have died before that.
  if (std::to_string(::getppid()) != parent) ::raise(SIGKILL);
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
