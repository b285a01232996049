#include "cli/method_description.h"

#include <array>
#include <cstdio>

#include "cli/method_lookup.h"
#include "cli/text_table.h"
#include "component/method_table.h"

namespace velmar::cli {

std::string_view in_words(ValueType type) {
  constexpr auto words = std::to_array<std::string_view>(
      {"none", "variant", "boolean", "int16", "int32", "number", "text"});
  static_assert(words.size() == static_cast<std::size_t>(ValueType::text) + 1);
  return words[static_cast<std::size_t>(type)];
}

namespace {

constexpr auto subjects = std::to_array<std::string_view>(
    {"handles", "calc", "text", "geometry", "layers", "measure", "batch"});
static_assert(subjects.size() == static_cast<std::size_t>(Subject::batch) + 1);

}  // namespace

std::string_view in_words(Subject subject) { return subjects[static_cast<std::size_t>(subject)]; }

ErrorStyle error_style(OnFailure on_failure) {
  constexpr auto styles = std::to_array<ErrorStyle>(
      {{"reaches_caller", "a failing step ends the method with an error"},
       {"skips_step", "a failing step is skipped, and the method never fails"},
       {"ends_quietly", "a failing step ends the method, which then returns as usual"}});
  static_assert(styles.size() == static_cast<std::size_t>(OnFailure::ends_quietly) + 1);
  return styles[static_cast<std::size_t>(on_failure)];
}

std::string dispatch_text(const Method& method) {
  char text[11];
  std::snprintf(text, sizeof text, "0x%08X", method.dispatch_id);
  return text;
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
  facts.add({"dispatch id", dispatch_text(method)});
  const std::string listed = method.parameters().empty() ? "" : parameters.text(2) + "\n";
  return signature(method) + "\n" + std::string(method.help) + "\n\n" + listed + facts.text(2);
}

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

std::string methods_text() {
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

}  // namespace velmar::cli
