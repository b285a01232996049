#include <CLI/CLI.hpp>
#include <memory>
#include <string>

#include "cli/action.h"
#include "cli/command_pages.h"
#include "cli/console.h"

namespace velmar::cli {

/// Hidden: the installation prints its manual page and completions with it.
void add_print(CLI::App& program, Action& action) {
  const auto what = std::make_shared<std::string>();
  CLI::App* const command =
      program.add_subcommand("print", "Print the manual page, or completions for a shell");
  command->group("");
  command->add_option("WHAT", *what, "man, bash, zsh or fish")
      ->required()
      ->check(CLI::IsMember({"man", "bash", "zsh", "fish"}));
  command->callback([what, &program, &action] {
    const auto pages = command_pages(program);
    action = [what, pages] {
      print(*what == "man" ? manual_page(pages) : completion(pages, *what));
      return ExitCode::done;
    };
  });
}

}  // namespace velmar::cli
