#include "cli/interpreter.h"

#include "basic/strings.h"
#include "cli/arguments.h"
#include "cli/command_words.h"
#include "cli/console.h"
#include "cli/method_lookup.h"
#include "cli/usage_error.h"
#include "component/method_table.h"

namespace velmar::cli {

const Interpreter::Command* Interpreter::find_command(std::string_view name) {
  for (const Command* command = commands; !command->name.empty(); ++command) {
    if (basic::equal_ignoring_case(command->name, name)) return command;
  }
  return nullptr;
}

bool Interpreter::execute(const std::string& line) {
  const std::vector<std::string> words = command_words(line);
  if (words.empty()) return true;
  const Words rest = Words(words).subspan(1);
  if (const Command* command = find_command(words.front())) {
    (this->*command->run)(rest);
    return true;
  }
  return call(require_method(words.front()), rest);
}

std::vector<basic::Value> Interpreter::arguments_of(const Method& method, Words words) {
  std::vector<std::string> given(words.begin(), words.end());
  const auto parameters = method.parameters();
  for (std::size_t i = given.size(); i < parameters.size() && !parameters[i].optional; ++i) {
    const std::string name(parameters[i].name);
    const auto answer = lines_.answer("\r\nEnter " + name + ": ");
    if (!answer) throw UsageError(std::string(method.name) + ": " + name + " is missing");
    given.push_back(*answer);
  }
  return read_arguments(method, given);
}

bool Interpreter::call(const Method& method, Words words) {
  CallRecord record;
  record.method = &method;
  record.arguments = arguments_of(method, words);
  run_.call(record);
  record.transcript = conversation_.take_transcript();
  report_(record);
  return !record.failure;
}

}  // namespace velmar::cli
