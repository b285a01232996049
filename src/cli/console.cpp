#include "cli/console.h"

#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <string>

#include "drawing/error.h"

namespace velmar::cli {

void print(std::string_view text) {
  errno = 0;
  const bool written = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
  if (written && std::fflush(stdout) == 0) return;
  const int why = errno;
  std::clearerr(stdout);
  if (why == EPIPE) return;
  throw drawing::Error(std::string("standard output cannot be written: ") + std::strerror(why));
}

void complain(std::string_view message) {
  const std::string line = std::string(message) + "\n";
  std::fwrite(line.data(), 1, line.size(), stderr);
}

namespace {

// Only calls that are safe in a signal handler.
extern "C" void end_on_bus_error(int) {
  constexpr std::string_view message =
      "velmar: a drawing was cut short by another program while it was being read\n";
  [[maybe_unused]] const auto written = ::write(STDERR_FILENO, message.data(), message.size());
  ::_exit(3);
}

}  // namespace

void install_signal_handlers() {
  struct sigaction on_bus_error {};
  on_bus_error.sa_handler = end_on_bus_error;
  ::sigaction(SIGBUS, &on_bus_error, nullptr);
  std::signal(SIGPIPE, SIG_IGN);
}

}  // namespace velmar::cli
