#include "cli/interpreter.h"

#include <algorithm>

#include "basic/strings.h"
#include "cli/arguments.h"
#include "cli/command_words.h"
#include "cli/completion.h"
#include "cli/console.h"
#include "cli/interrupt.h"
#include "cli/method_lookup.h"
#include "cli/printable.h"
#include "cli/usage_error.h"
#include "component/method_table.h"
#include "drawing/error.h"

namespace velmar::cli {
namespace {

/// Adds what a step changed, but for the drawings that the method saved, which are told already.
void add_changes(CallRecord& record, std::vector<DrawingChanges> changed) {
  for (DrawingChanges& drawing : changed) {
    const auto told = std::ranges::find(record.drawings, drawing.drawing, &DrawingChanges::drawing);
    if (told == record.drawings.end()) record.drawings.push_back(std::move(drawing));
  }
}

}  // namespace

const Interpreter::Command* Interpreter::find_command(std::string_view name) {
  for (const Command* command = commands; !command->name.empty(); ++command) {
    if (basic::equal_ignoring_case(command->name, name)) return command;
  }
  return nullptr;
}

std::vector<std::string> Interpreter::command_names() {
  std::vector<std::string> names;
  for (const Command* command = commands; !command->name.empty(); ++command) {
    names.emplace_back(command->name);
  }
  return names;
}

bool Interpreter::execute(const std::string& line) {
  const std::vector<std::string> words = command_words(line);
  if (words.empty()) return true;
  const Words rest = Words(words).subspan(1);
  forget_interrupt();
  bool done = true;
  if (const Command* command = find_command(words.front())) {
    (this->*command->run)(rest);
    if (!command->is_recorded) return true;
  } else {
    done = call(require_method(words.front()), rest);
  }
  lines_.keep(done);
  return done;
}

bool Interpreter::execute_or_complain(const std::string& line) {
  try {
    return execute(line);
  } catch (const UsageError& error) {
    complain(error.what());
  } catch (const drawing::Error& error) {
    complain(printable(error.what()));
  }
  return false;
}

/// A value that cannot be used is asked for again, where a user is there to give another.
std::string Interpreter::ask_for(const Method& method, std::size_t parameter) {
  const std::string name(method.parameters()[parameter].name);
  const bool is_layer = basic::contains_ignoring_case(name, "layer");
  for (;;) {
    const auto answer = lines_.answer("\r\nEnter " + name + ": ",
                                      is_layer ? layer_names(run_) : std::vector<std::string>());
    if (!answer) throw UsageError(std::string(method.name) + ": " + name + " is missing");
    const std::optional<std::string> refused = refusal(method, parameter, *answer);
    if (!refused || !lines_.has_user()) return *answer;
    complain(*refused);
    lines_.take_back();
  }
}

std::vector<basic::Value> Interpreter::arguments_of(const Method& method, Words words) {
  std::vector<std::string> given(words.begin(), words.end());
  const auto parameters = method.parameters();
  for (std::size_t i = given.size(); i < parameters.size() && !parameters[i].optional; ++i) {
    given.push_back(ask_for(method, i));
  }
  return read_arguments(method, given);
}

std::vector<DrawingChanges> Interpreter::end_step(std::string_view name) {
  std::vector<DrawingChanges> changed;
  for (const embedded::DocumentPointer& document : run_.documents()) {
    auto changes = document->drawing.end_step(std::string(name));
    if (!changes) continue;
    const bool only_others = changes->empty();
    changed.push_back({run_.name_of(*document), std::move(*changes), {}, only_others});
  }
  return changed;
}

bool Interpreter::call(const Method& method, Words words) {
  CallRecord record;
  record.method = &method;
  record.arguments = arguments_of(method, words);
  record.given = record.arguments;
  run_.call(record);
  record.was_interrupted = was_interrupted();
  forget_interrupt();
  record.transcript = conversation_.take_transcript();
  add_changes(record, end_step(method.name));
  report_(record);
  return !record.failure && !record.was_interrupted;
}

}  // namespace velmar::cli
