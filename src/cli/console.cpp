#include "cli/console.h"

#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "cli/printable.h"
#include "drawing/error.h"

namespace velmar::cli {

namespace {

bool has_colours() {
  const char* const refused = std::getenv("NO_COLOR");
  const char* const terminal = std::getenv("TERM");
  return (refused == nullptr || *refused == 0) && terminal != nullptr &&
         std::string_view(terminal) != "dumb" && ::isatty(STDERR_FILENO) != 0;
}

}  // namespace

void print(std::string_view text) {
  static const bool to_terminal = ::isatty(STDOUT_FILENO) != 0;
  const std::string shown = to_terminal ? printable_lines(text) : std::string();
  if (to_terminal) text = shown;
  errno = 0;
  const bool written = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
  if (written && std::fflush(stdout) == 0) return;
  const int why = errno;
  std::clearerr(stdout);
  if (why == EPIPE) return;
  throw drawing::Error(std::string("standard output cannot be written: ") + std::strerror(why));
}

void complain(std::string_view message) {
  static const bool to_terminal = ::isatty(STDERR_FILENO) != 0, in_colour = has_colours();
  std::string line = to_terminal ? printable_lines(message) : std::string(message);
  if (in_colour) line = "\x1B[31m" + line + "\x1B[0m";
  line += "\n";
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
