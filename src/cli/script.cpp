#include <CLI/CLI.hpp>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "cli/action.h"
#include "cli/call_report.h"
#include "cli/console.h"
#include "cli/interpreter.h"
#include "cli/printable.h"
#include "cli/saving.h"
#include "cli/script_lines.h"
#include "cli/usage_error.h"
#include "drawing/error.h"

namespace velmar::cli {
namespace {

struct ScriptOptions {
  std::string file;
  std::vector<std::string> drawings;
  SavingOptions saving;
  bool goes_on = false;
  bool json = false;
};

/// What was changed is told at the end, of all lines together, but for what methods saved.
void print_call(CallRecord record, bool json) {
  std::erase_if(record.drawings, [](const DrawingChanges& told) { return told.saved_to.empty(); });
  print(json ? to_text(call_json(record)) : call_text(record));
  tell_refused(record);
  if (record.failure) complain(failure_text(*record.failure));
}

/// Runs the lines; where it ends early, what stopped it.
std::optional<std::string> run_lines(Interpreter& interpreter, Lines& lines,
                                     const ScriptLines& script, bool goes_on) {
  std::optional<std::string> failed;
  while (const std::optional<std::string> line = lines.command()) {
    const bool done = interpreter.execute_or_complain(*line);
    if (interpreter.wants_to_quit()) break;
    if (done) continue;
    failed = script.where() + ": \"" + *line + "\" failed";
    complain(*failed);
    if (!goes_on) break;
  }
  return failed;
}

ExitCode run_script(const ScriptOptions& options) {
  check_saving(options.saving, options.drawings);
  ScriptLines script(options.file);
  RecordedLines lines(script);
  Conversation conversation(lines);
  Run run(options.drawings, conversation, options.saving.journal, Run::Session::steps);
  if (options.saving.dry_run) run.begin_dry_run();
  Interpreter interpreter(run, lines, conversation,
                          [&](const CallRecord& record) { print_call(record, options.json); });
  const std::optional<std::string> failed = run_lines(interpreter, lines, script, options.goes_on);

  CallRecord all;  // of what the script did to the drawings
  if (failed && !options.goes_on) all.failure = basic::Failure(0, "velmar", *failed);
  save(run, options.saving, all);
  if (options.json) {
    print(to_text(script_json(options.file, all)));
  } else {
    print(call_text(all));
  }
  if (all.drawing_failure) complain(printable(*all.drawing_failure));
  if (all.drawing_failure) return ExitCode::drawing_failed;
  return failed ? ExitCode::method_failed : ExitCode::done;
}

constexpr const char* about_scripts =
    "A line is a method with its arguments, or a command of the console (OPEN, SAVEAS, UNDO, "
    "...);\n"
    "the lines below it are the answers to its questions. An empty line is Enter, ^C is Escape.\n"
    "A line that begins with ; is a comment. Quotes hold words together.";

}  // namespace

void add_script(CLI::App& program, Action& action) {
  const auto options = std::make_shared<ScriptOptions>();
  CLI::App* const command =
      program.add_subcommand("script", "Run a file of methods and answers, one a line");
  command->footer(about_scripts);
  command->add_option("FILE", options->file, "The script")->required();
  command
      ->add_option("-d,--drawing", options->drawings,
                   "Open this drawing (repeatable; the first is active)")
      ->allow_extra_args(false);
  add_saving_options(*command, options->saving);
  command->add_flag("--go-on", options->goes_on, "Go on after a line that fails");
  command->add_flag("--json", options->json, "Write JSON, one object a line");
  command->callback([options, &action] { action = [options] { return run_script(*options); }; });
}

}  // namespace velmar::cli
