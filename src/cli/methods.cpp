#include <CLI/CLI.hpp>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "cli/action.h"
#include "cli/console.h"
#include "cli/json.h"
#include "cli/method_lookup.h"
#include "cli/text_table.h"
#include "component/method_table.h"

namespace velmar::cli {
namespace {

struct MethodsOptions {
  std::string name;  // empty: all
  bool json = false;
};

std::string_view in_words(ValueType type) {
  constexpr auto words = std::to_array<std::string_view>(
      {"none", "variant", "boolean", "int16", "int32", "number", "text"});
  static_assert(words.size() == static_cast<std::size_t>(ValueType::text) + 1);
  return words[static_cast<std::size_t>(type)];
}

constexpr auto subjects = std::to_array<std::string_view>(
    {"handles", "calc", "text", "geometry", "layers", "measure", "batch"});
static_assert(subjects.size() == static_cast<std::size_t>(Subject::batch) + 1);

std::string_view in_words(Subject subject) { return subjects[static_cast<std::size_t>(subject)]; }

struct ErrorStyle {
  std::string_view name, meaning;
};

ErrorStyle error_style(OnFailure on_failure) {
  constexpr auto styles = std::to_array<ErrorStyle>(
      {{"reaches_caller", "a failing step ends the method with an error"},
       {"skips_step", "a failing step is skipped, and the method never fails"},
       {"ends_quietly", "a failing step ends the method, which then returns as usual"}});
  static_assert(styles.size() == static_cast<std::size_t>(OnFailure::ends_quietly) + 1);
  return styles[static_cast<std::size_t>(on_failure)];
}

std::string hexadecimal(std::uint32_t number) {
  char text[11];
  std::snprintf(text, sizeof text, "0x%08X", number);
  return text;
}

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
          {"dispatch_id", hexadecimal(method.dispatch_id)}};
}

std::string method_text(const Method& method) {
  using Side = TextTable::Side;
  TextTable parameters({Side::left, Side::left, Side::left, Side::left});
  for (const Parameter& parameter : method.parameters()) {
    parameters.add({std::string(parameter.name), std::string(in_words(parameter.type)),
                    parameter.by_reference ? "by reference" : "by value",
                    parameter.optional ? "optional" : ""});
  }
  TextTable facts({Side::left, Side::left});
  facts.add({"result", std::string(in_words(method.result))});
  facts.add({"errors", std::string(error_style(method.on_failure).meaning)});
  facts.add({"subject", std::string(in_words(method.subject))});
  facts.add({"dispatch id", hexadecimal(method.dispatch_id)});
  const std::string listed = method.parameters().empty() ? "" : parameters.text(2) + "\n";
  return signature(method) + "\n" + std::string(method.help) + "\n\n" + listed + facts.text(2);
}

/// Signature and help in two columns; a signature that does not fit has its help on the next line.
std::string line_of_list(const Method& method) {
  constexpr std::size_t help_column = 34;
  std::string line = "  " + signature(method);
  if (line.size() + 2 > help_column) {
    line += "\n" + std::string(help_column, ' ');
  } else {
    line.append(help_column - line.size(), ' ');
  }
  return line.append(method.help) + "\n";
}

std::string list_text() {
  std::string text;
  for (const std::string_view subject : subjects) {
    if (!text.empty()) text += "\n";
    text.append(subject).append(":\n");
    for (const Method& method : methods()) {
      if (in_words(method.subject) == subject) text += line_of_list(method);
    }
  }
  return text;
}

ExitCode show_methods(const MethodsOptions& options) {
  if (!options.name.empty()) {
    const Method& method = require_method(options.name);
    print(options.json ? to_text(method_json(method)) : method_text(method));
    return ExitCode::done;
  }
  Json all = Json::array();
  for (const Method& method : methods()) all.push_back(method_json(method));
  print(options.json ? to_text(all) : list_text());
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
