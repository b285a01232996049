#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

namespace velmar::com {

struct CommandLine {
  enum class Action { serve, register_host, unregister_host, quit, help };

  Action action = Action::serve;
  bool for_automation = false;      // started by a client, to end with it
  unsigned idle_seconds = 30 * 60;  // without a call, before a host started by a client ends
  std::vector<std::filesystem::path> drawings;
};

/// What stands after the program's name; options begin with / or -, in any letter case. Fails with
/// std::invalid_argument, which names the option.
CommandLine read_command_line(const std::vector<std::wstring>& words);

extern const char* const command_line_help;

}  // namespace velmar::com
