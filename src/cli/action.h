#pragma once

#include <functional>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace velmar::cli {

/// What the program ends with.
enum class ExitCode {
  done = 0,
  method_failed = 1,
  wrong_usage = 2,
  drawing_failed = 3,
  some_failed = 4,
  interrupted = 130
};

/// The work that the command line asks for.
using Action = std::function<ExitCode()>;

/// Finds out what to do; help and version are answered here. Wrong usage fails with UsageError.
Action read_command_line(const std::vector<std::string>& words);

// Each adds its subcommand to the program; when the user gives it, `action` becomes its work.
void add_call(CLI::App& program, Action& action);
void add_methods(CLI::App& program, Action& action);
void add_info(CLI::App& program, Action& action);
void add_convert(CLI::App& program, Action& action);
void add_script(CLI::App& program, Action& action);
void add_console(CLI::App& program, Action& action);
void add_batch(CLI::App& program, Action& action);
void add_undo(CLI::App& program, Action& action);
void add_diff(CLI::App& program, Action& action);
void add_doctor(CLI::App& program, Action& action);
void add_render(CLI::App& program, Action& action);
void add_print(CLI::App& program, Action& action);

}  // namespace velmar::cli
