#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace velmar::cli {

/// What the command line's own tables say of a command: what the manual page and the completions
/// are made of.
struct CommandOption {
  std::vector<std::string> names;  // "-d", "--drawing"; of what stands by its place "METHOD"
  std::string help;
  bool by_place = false;
  bool takes_value = false;
  bool takes_file = false;
  bool repeats = false;
};
struct CommandPage {
  std::string name, help, footer;
  std::vector<CommandOption> options;
};

/// Of the program itself first, then of its commands in their order; hidden ones are left out.
std::vector<CommandPage> command_pages(const CLI::App& program);

/// The manual page, in the macros of man(7).
std::string manual_page(const std::vector<CommandPage>& pages);
/// What completes commands, options and methods in a shell: "bash", "zsh" or "fish". Empty for
/// another one.
std::string completion(const std::vector<CommandPage>& pages, const std::string& shell);

}  // namespace velmar::cli
