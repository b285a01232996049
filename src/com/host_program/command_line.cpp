#include "com/host_program/command_line.h"

#include <charconv>

#include "basic/strings.h"
#include "com/automation/bstr.h"

namespace velmar::com {
namespace {

using basic::equal_ignoring_case;

unsigned seconds(std::string_view text) {
  constexpr unsigned a_week = 7 * 24 * 60 * 60;
  unsigned number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size() || number == 0 || number > a_week) {
    throw std::invalid_argument("/Idle wants seconds from 1 to 604800, found \"" +
                                std::string(text) + "\"");
  }
  return number;
}

void read_option(std::string_view option, CommandLine& line) {
  using Action = CommandLine::Action;
  constexpr std::string_view idle = "Idle:";
  if (equal_ignoring_case(option, "RegServer"))
    line.action = Action::register_host;
  else if (equal_ignoring_case(option, "UnregServer"))
    line.action = Action::unregister_host;
  else if (equal_ignoring_case(option, "Quit"))
    line.action = Action::quit;
  else if (equal_ignoring_case(option, "Help") || option == "?")
    line.action = Action::help;
  else if (equal_ignoring_case(option, "Automation"))
    line.for_automation = true;
  else if (equal_ignoring_case(option, "Embedding"))
    line.for_automation = true;
  else if (equal_ignoring_case(option.substr(0, idle.size()), idle))
    line.idle_seconds = seconds(option.substr(idle.size()));
  else
    throw std::invalid_argument("the option /" + std::string(option) + " is not known");
}

}  // namespace

const char* const command_line_help =
    "velmar-host [DRAWING...]   opens drawings and serves them as Velmar.Application\r\n"
    "  /RegServer, /UnregServer make it known to automation clients, and unknown again\r\n"
    "  /Quit                    ends the host that is running\r\n"
    "  /Idle:SECONDS            how long a host that a client started lives without a call "
    "(1800)\r\n"
    "  /Automation, /Embedding  as clients start it: it ends with its last client\r\n";

CommandLine read_command_line(const std::vector<std::wstring>& words) {
  CommandLine line;
  for (const std::wstring& word : words) {
    if (word.starts_with(L'/') || word.starts_with(L'-')) {
      read_option(to_utf8(std::wstring_view(word).substr(1)), line);
    } else {
      line.drawings.push_back(std::filesystem::absolute(word));
    }
  }
  return line;
}

}  // namespace velmar::com
