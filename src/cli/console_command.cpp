#include <CLI/CLI.hpp>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "cli/action.h"
#include "cli/call_report.h"
#include "cli/completion.h"
#include "cli/console.h"
#include "cli/console_lines.h"
#include "cli/interpreter.h"
#include "cli/interrupt.h"
#include "cli/printable.h"
#include "cli/script_lines.h"
#include "cli/usage_error.h"
#include "drawing/error.h"
#include "embedded/host.h"

namespace velmar::cli {
namespace {

void tell(const CallRecord& record) {
  print(call_text(record) + written_back_text(record));
  tell_refused(record);
  if (record.was_interrupted) {
    const bool changed = !record.drawings.empty();
    complain(std::string("*Cancel*") + (changed ? ": what was done so far stays until UNDO" : ""));
  } else if (record.failure) {
    complain(failure_text(*record.failure));
  }
}

/// Whether every line did what it should; the session goes on after each.
bool run_session(Interpreter& interpreter, Lines& lines) {
  bool all_done = true;
  while (!interpreter.wants_to_quit()) {
    const std::optional<std::string> line = lines.command();
    if (!line) break;
    const bool done = interpreter.execute_or_complain(*line);
    all_done = all_done && done;
  }
  return all_done;
}

void tell_unsaved(const Run& run) {
  for (const embedded::DocumentPointer& document : run.documents()) {
    if (document->drawing.is_changed()) {
      complain(printable(run.name_of(*document)) + " was changed but is not saved");
    }
  }
}

ExitCode at_terminal(const std::vector<std::string>& drawings) {
  note_interrupts();
  Screen screen;
  const Run* completed = nullptr;
  ConsoleLines typed(screen, [&](std::string_view line) {
    return complete_command(line, Interpreter::command_names(), *completed);
  });
  RecordedLines lines(typed);
  ConsoleConversation conversation(lines, screen);
  Run run(drawings, conversation, {}, Run::Session::interruptible);
  completed = &run;
  print("Velmar " + std::string(embedded::velmar_version) + ". HELP lists the commands.\n");
  Interpreter interpreter(run, lines, conversation, [&](const CallRecord& record) {
    screen.begin_line();
    tell(record);
  });
  run_session(interpreter, lines);
  if (!interpreter.wants_to_quit()) tell_unsaved(run);
  return ExitCode::done;
}

/// As a script that goes on after a line that fails.
ExitCode with_plain_lines(const std::vector<std::string>& drawings) {
  ScriptLines script;
  RecordedLines lines(script);
  Conversation conversation(lines);
  Run run(drawings, conversation, {}, Run::Session::steps);
  Interpreter interpreter(run, lines, conversation, tell);
  const bool all_done = run_session(interpreter, lines);
  tell_unsaved(run);
  return all_done ? ExitCode::done : ExitCode::method_failed;
}

constexpr const char* about_console =
    "At the prompt a method is run by its name, in any letter case, and asks for what it needs;\n"
    "HELP lists the methods and the commands of the session. An entity is #2F or a point, a\n"
    "selection also ALL, P, L, W x,y x,y or C x,y x,y, until Enter. Escape cancels a question,\n"
    "Tab completes, QUIT or Ctrl-D ends. Lines from a pipe are run as a script that goes on after\n"
    "errors; the exit code is then 1.";

}  // namespace

void add_console(CLI::App& program, Action& action) {
  const auto drawings = std::make_shared<std::vector<std::string>>();
  CLI::App* const command =
      program.add_subcommand("console", "A prompt for methods, as at a CAD command line");
  command->footer(about_console);
  command->add_option("DRAWING", *drawings, "Open this drawing (repeatable; the first is active)");
  command->callback([drawings, &action] {
    action = [drawings] {
      return LineEditor::is_possible() ? at_terminal(*drawings) : with_plain_lines(*drawings);
    };
  });
}

}  // namespace velmar::cli
