#include <CLI/CLI.hpp>
#include <exception>
#include <sstream>
#include <string>
#include <vector>

#include "cli/action.h"
#include "cli/build_facts.h"
#include "cli/command_line.h"
#include "cli/console.h"
#include "cli/printable.h"
#include "cli/process.h"
#include "cli/usage_error.h"
#include "drawing/error.h"

namespace {

using velmar::cli::Action;
using velmar::cli::ExitCode;
using velmar::cli::UsageError;

constexpr const char* exit_codes =
    "Exit codes: 0 done, 1 the method ended with an error, 2 wrong usage,\n"
    "3 a drawing could not be read or written, 4 some drawings of a batch failed,\n"
    "130 cancelled by Ctrl-C.\n"
    "'velmar COMMAND --help' tells more about a command.";

std::string wrong_usage(const CLI::App& program, const std::vector<std::string>& words,
                        const CLI::ParseError& error) {
  if (!program.get_subcommands().empty()) return error.what();
  if (words.size() < 2) return "a command is missing";
  return words[1].starts_with('-') ? error.what() : "there is no command \"" + words[1] + "\"";
}

/// Finds out what to do; help, version and wrong usage are answered here.
Action read_command_line(const std::vector<std::string>& words) {
  Action action;
  CLI::App program("Velmar, a toolbox of drawing-editing commands for CAD drafters", "velmar");
  program.set_version_flag("--version", velmar::cli::version_text());
  program.require_subcommand(1);
  program.allow_windows_style_options(false);  // a word with a slash is a path everywhere
  program.footer(exit_codes);
  velmar::cli::add_call(program, action);
  velmar::cli::add_methods(program, action);
  velmar::cli::add_info(program, action);
  velmar::cli::add_convert(program, action);
  velmar::cli::add_script(program, action);
  velmar::cli::add_console(program, action);
  velmar::cli::add_batch(program, action);
  velmar::cli::add_undo(program, action);
  velmar::cli::add_diff(program, action);
  velmar::cli::add_render(program, action);
  velmar::cli::add_doctor(program, action);
  velmar::cli::add_print(program, action);
  try {
    program.parse(std::vector<std::string>(words.rbegin(), words.rend() - 1));
  } catch (const CLI::Success& help_or_version) {
    std::ostringstream text;
    program.exit(help_or_version, text);
    return [answer = text.str()] {
      velmar::cli::print(answer);
      return ExitCode::done;
    };
  } catch (const CLI::ParseError& error) {
    throw UsageError(wrong_usage(program, words, error) +
                     "\n'velmar --help' lists what is possible.");
  }
  return action;
}

}  // namespace

int main(int argc, char** argv) {
  velmar::cli::install_signal_handlers();
  velmar::cli::end_with_parent();
  try {
    return static_cast<int>(read_command_line(velmar::cli::command_line(argc, argv))());
  } catch (const UsageError& error) {
    velmar::cli::complain(std::string("velmar: ") + error.what());
    return static_cast<int>(ExitCode::wrong_usage);
  } catch (const velmar::drawing::Error& error) {
    velmar::cli::complain("velmar: " + velmar::cli::printable(error.what()));
  } catch (const std::exception& error) {
    velmar::cli::complain(std::string("velmar: internal error: ") + error.what());
  }
  return static_cast<int>(ExitCode::drawing_failed);
}
