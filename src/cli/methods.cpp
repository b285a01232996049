#include <CLI/CLI.hpp>
#include <memory>
#include <string>
#include <vector>

#include "cli/action.h"
#include "cli/console.h"
#include "cli/json.h"
#include "cli/method_description.h"
#include "cli/method_lookup.h"
#include "component/method_table.h"

namespace velmar::cli {
namespace {

struct MethodsOptions {
  std::string name;  // empty: all
  bool json = false;
};

Json method_json(const Method& method) {
  Json parameters = Json::array();
  for (const Parameter& parameter : method.parameters()) {
    parameters.push_back({{"name", parameter.name},
                          {"type", in_words(parameter.type)},
                          {"by_reference", parameter.by_reference},
                          {"optional", parameter.optional}});
  }
  return {{"name", method.name},
          {"subject", in_words(method.subject)},
          {"help", method.help},
          {"parameters", parameters},
          {"result", in_words(method.result)},
          {"on_failure", error_style(method.on_failure).name},
          {"dispatch_id", dispatch_text(method)}};
}

ExitCode show_methods(const MethodsOptions& options) {
  if (!options.name.empty()) {
    const Method& method = require_method(options.name);
    print(options.json ? to_text(method_json(method)) : method_text(method));
    return ExitCode::done;
  }
  Json all = Json::array();
  for (const Method& method : methods()) all.push_back(method_json(method));
  print(options.json ? to_text(all) : methods_text());
  return ExitCode::done;
}

}  // namespace

void add_methods(CLI::App& program, Action& action) {
  const auto options = std::make_shared<MethodsOptions>();
  CLI::App* const command =
      program.add_subcommand("methods", "List the methods, or describe one of them");
  command->add_option("NAME", options->name, "Describe this method");
  command->add_flag("--json", options->json, "Write JSON");
  command->callback([options, &action] { action = [options] { return show_methods(*options); }; });
}

}  // namespace velmar::cli
