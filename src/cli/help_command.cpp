#include "cli/console.h"
#include "cli/interpreter.h"
#include "cli/method_description.h"
#include "cli/method_lookup.h"
#include "cli/usage_error.h"
#include "component/method_table.h"
#include "component/method_words.h"

namespace velmar::cli {

std::string Interpreter::help_on(const Command& command) {
  std::string text(command.name);
  if (!command.parameters.empty()) text.append(" ").append(command.parameters);
  return text.append("\n    ").append(command.help).append("\n");
}

void Interpreter::help(Words words) {
  if (words.empty()) {
    print("the session:\n");
    for (const Command* command = commands; !command->name.empty(); ++command) {
      print("  " + std::string(command->name) + " " + std::string(command->parameters) + "\n");
    }
    return print("\n" + methods_text() +
                 "\nHELP NAME describes one; HELP WORD finds those about something.\n");
  }
  std::string wanted;
  for (const std::string& word : words) wanted += (wanted.empty() ? "" : " ") + word;
  if (const Command* command = find_command(wanted)) return print(help_on(*command));
  const Method* const method = find_method(wanted);
  std::vector<const Method*> found = methods_about(wanted);
  if (method == nullptr && found.empty()) {
    throw UsageError("nothing is known about \"" + wanted + "\": HELP lists all");
  }
  if (method != nullptr) {
    std::erase(found, method);
    print(method_text(*method) + "\nalso known as: " + std::string(everyday_words(method->name)) +
          "\n");
    if (!found.empty()) print("\nsee also\n");
  }
  for (const Method* other : found) print(line_of_list(*other));
}

}  // namespace velmar::cli
