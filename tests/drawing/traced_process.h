#pragma once

#include <gtest/gtest.h>
#include <sys/ptrace.h>
#include <sys/reg.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <functional>

namespace velmar::drawing {

/// Work in a process of its own that stops before and after each of its system calls. What is not
/// ended yet is killed with the object.
class TracedProcess {
 public:
  /// The work says begin() where its stops are to begin; what it returns is the exit code.
  explicit TracedProcess(const std::function<int()>& work) : child_(::fork()) {
    if (child_ == 0) ::_exit(::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) == 0 ? work() : 255);
    ::waitpid(child_, &status_, 0);
    ::ptrace(PTRACE_SETOPTIONS, child_, nullptr, PTRACE_O_TRACESYSGOOD);  // so that calls are told
  }
  TracedProcess(const TracedProcess&) = delete;
  TracedProcess& operator=(const TracedProcess&) = delete;
  ~TracedProcess() {
    if (!is_stopped()) return;
    ::kill(child_, SIGKILL);
    ::waitpid(child_, &status_, 0);
  }

  static void begin() { ::raise(SIGSTOP); }

  bool is_stopped() const { return WIFSTOPPED(status_); }
  /// To the next stop, or to the end.
  void go_on() {
    ::ptrace(PTRACE_SYSCALL, child_, nullptr, nullptr);
    ::waitpid(child_, &status_, 0);
  }
  /// The exit code; -1 where a signal ended it.
  int run_to_end() {
    while (is_stopped()) {
      ::ptrace(PTRACE_CONT, child_, nullptr, nullptr);
      ::waitpid(child_, &status_, 0);
    }
    return WIFEXITED(status_) ? WEXITSTATUS(status_) : -1;
  }

#ifdef __x86_64__
  static constexpr bool can_refuse = true;

  /// The system call before which it stands; -1 behind one.
  long call() const {
    __ptrace_syscall_info info{};
    ::ptrace(PTRACE_GET_SYSCALL_INFO, child_, sizeof info, &info);
    return info.op == PTRACE_SYSCALL_INFO_ENTRY ? static_cast<long>(info.entry.nr) : -1;
  }
  unsigned long long argument(int n) const {
    __ptrace_syscall_info info{};
    ::ptrace(PTRACE_GET_SYSCALL_INFO, child_, sizeof info, &info);
    return info.entry.args[n];
  }
  /// The call before which it stands does nothing and comes back with this error.
  void refuse(int error) {
    set_register(ORIG_RAX, -1);
    go_on();
    set_register(RAX, -error);
  }

 private:
  void set_register(int number, long value) const {
    EXPECT_EQ(
        ::ptrace(PTRACE_POKEUSER, child_, sizeof(long) * static_cast<unsigned>(number), value), 0);
  }
#else
  static constexpr bool can_refuse = false;  // registers of other processors are not known here

  long call() const { return -1; }
  unsigned long long argument(int) const { return 0; }
  void refuse(int) {}

 private:
#endif
  pid_t child_;
  int status_ = 0;
};

}  // namespace velmar::drawing
