#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <pty.h>
#include <signal.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <thread>

#include "cli/terminal.h"

namespace velmar::cli {
namespace {

constexpr auto patience = std::chrono::seconds(15);

[[noreturn]] void become_program(const std::vector<std::string>& arguments,
                                 const std::filesystem::path& folder,
                                 const std::vector<std::string>& settings) {
  const std::string here = folder.string();
  std::vector<std::string> environment{"TERM=xterm",
                                       "LC_ALL=C.UTF-8",
                                       "HOME=" + here,
                                       "XDG_STATE_HOME=" + here + "/state",
                                       "XDG_DATA_HOME=" + here,
                                       "XDG_CONFIG_HOME=" + here,
                                       "LSAN_OPTIONS=suppressions=" VELMAR_CORPUS
                                       "/../cli/leaks.txt:print_suppressions=0"};
  environment.insert(environment.end(), settings.begin(), settings.end());
  std::vector<std::string> words{"velmar"};
  words.insert(words.end(), arguments.begin(), arguments.end());
  const auto pointers = [](std::vector<std::string>& texts) {
    std::vector<char*> list;
    for (std::string& text : texts) list.push_back(text.data());
    list.push_back(nullptr);
    return list;
  };
  if (::chdir(here.c_str()) == 0) {
    ::execve(VELMAR_PROGRAM, pointers(words).data(), pointers(environment).data());
  }
  ::_exit(127);
}

}  // namespace

Terminal::Terminal(const std::vector<std::string>& arguments, const std::filesystem::path& folder,
                   const std::vector<std::string>& settings) {
  const winsize size{24, 100, 0, 0};
  program_ = ::forkpty(&terminal_, nullptr, nullptr, &size);
  if (program_ < 0) throw std::runtime_error("no terminal");
  if (program_ == 0) become_program(arguments, folder, settings);
}

Terminal::~Terminal() {
  if (program_ > 0) {
    ::kill(program_, SIGKILL);
    ::waitpid(program_, nullptr, 0);
  }
  ::close(terminal_);
}

void Terminal::type(std::string_view keys) {
  ASSERT_EQ(::write(terminal_, keys.data(), keys.size()), static_cast<ssize_t>(keys.size()));
}

bool Terminal::read_more() {
  pollfd input{terminal_, POLLIN, 0};
  constexpr int milliseconds = 100;
  if (::poll(&input, 1, milliseconds) == 0) return true;
  std::array<char, 4096> bytes;
  const ssize_t count = ::read(terminal_, bytes.data(), bytes.size());
  if (count <= 0) return false;
  const auto end = bytes.begin() + count;
  std::copy_if(bytes.begin(), end, std::back_inserter(unread_), [](char c) { return c != '\r'; });
  return true;
}

/// The editor takes the keys a moment after its prompt has come; what is typed between is lost.
void Terminal::wait_for_editor() const {
  const auto end = std::chrono::steady_clock::now() + patience;
  termios mode{};
  while (std::chrono::steady_clock::now() < end) {
    if (::tcgetattr(terminal_, &mode) == 0 && (mode.c_lflag & ICANON) == 0) return;
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
}

std::string Terminal::expect(std::string_view text) {
  const auto end = std::chrono::steady_clock::now() + patience;
  for (;;) {
    const std::size_t at = unread_.find(text);
    if (at != std::string::npos) {
      std::string written = unread_.substr(0, at);
      unread_.erase(0, at + text.size());
      if (text.ends_with(": ") || text.ends_with("? ")) wait_for_editor();
      return written;
    }
    if (!read_more() || std::chrono::steady_clock::now() > end) {
      ADD_FAILURE() << "\"" << text << "\" did not come; instead:\n" << unread_;
      return {};
    }
  }
}

std::string Terminal::enter(std::string_view line) {
  type(std::string(line) + "\r");
  return expect("Command: ");
}

void Terminal::resize(unsigned short columns) {
  const winsize size{24, columns, 0, 0};
  ::ioctl(terminal_, TIOCSWINSZ, &size);
}

int Terminal::exit_code() {
  const auto end = std::chrono::steady_clock::now() + patience;
  while (std::chrono::steady_clock::now() < end) {
    int status = 0;
    read_more();  // what it writes must go somewhere
    if (::waitpid(program_, &status, WNOHANG) == program_) {
      program_ = 0;
      return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    }
  }
  return -1;
}

}  // namespace velmar::cli
