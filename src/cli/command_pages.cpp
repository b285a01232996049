#include "cli/command_pages.h"

#include <CLI/CLI.hpp>
#include <array>

namespace velmar::cli {
namespace {

/// Whose values are files, by their names: the parser does not know.
bool names_file(const std::string& name) {
  constexpr auto files = std::to_array<std::string_view>(
      {"--drawing", "--answers", "--output", "--journal", "--report", "DRAWING", "PATH", "IN",
       "OUT", "A", "B", "FILE", "SCRIPT", "METHOD|FILE.scr", "JOURNAL"});
  return std::ranges::find(files, name) != files.end();
}

CommandOption option_of(const CLI::Option& option) {
  CommandOption made;
  made.help = option.get_description();
  made.by_place = option.get_positional();
  made.takes_value = option.get_items_expected_max() > 0;
  made.repeats = option.get_items_expected_max() > 1 && made.by_place;
  if (made.by_place) {
    made.names = {option.get_name(true)};
  } else {
    for (const std::string& name : option.get_snames()) made.names.push_back("-" + name);
    for (const std::string& name : option.get_lnames()) made.names.push_back("--" + name);
  }
  made.takes_file = made.takes_value && !made.names.empty() && names_file(made.names.back());
  return made;
}

CommandPage page_of(const CLI::App& app) {
  CommandPage page{app.get_name(), app.get_description(), app.get_footer(), {}};
  for (const CLI::Option* const option : app.get_options()) {
    if (!option->get_group().empty()) page.options.push_back(option_of(*option));
  }
  return page;
}

}  // namespace

std::vector<CommandPage> command_pages(const CLI::App& program) {
  std::vector<CommandPage> pages{page_of(program)};
  for (const CLI::App* const command :
       program.get_subcommands([](const CLI::App*) { return true; }))
    if (!command->get_group().empty()) pages.push_back(page_of(*command));
  return pages;
}

}  // namespace velmar::cli
