#include <CLI/CLI.hpp>
#include <sstream>

#include "cli/action.h"
#include "cli/build_facts.h"
#include "cli/console.h"
#include "cli/usage_error.h"

namespace velmar::cli {
namespace {

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

}  // namespace

Action read_command_line(const std::vector<std::string>& words) {
  Action action;
  CLI::App program("Velmar, a toolbox of drawing-editing commands for CAD drafters", "velmar");
  program.set_version_flag("--version", version_text());
  program.require_subcommand(1);
  program.allow_windows_style_options(false);  // a word with a slash is a path everywhere
  program.footer(exit_codes);
  add_call(program, action);
  add_methods(program, action);
  add_info(program, action);
  add_convert(program, action);
  add_script(program, action);
  add_console(program, action);
  add_batch(program, action);
  add_undo(program, action);
  add_diff(program, action);
  add_render(program, action);
  add_doctor(program, action);
  add_print(program, action);
  try {
    program.parse(std::vector<std::string>(words.rbegin(), words.rend() - 1));
  } catch (const CLI::Success& help_or_version) {
    std::ostringstream text;
    program.exit(help_or_version, text);
    return [answer = text.str()] {
      print(answer);
      return ExitCode::done;
    };
  } catch (const CLI::ParseError& error) {
    throw UsageError(wrong_usage(program, words, error) +
                     "\n'velmar --help' lists what is possible.");
  }
  return action;
}

}  // namespace velmar::cli
