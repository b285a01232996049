#include <CLI/CLI.hpp>
#include <array>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "basic/strings.h"
#include "cli/action.h"
#include "cli/arguments.h"
#include "cli/call_report.h"
#include "cli/console.h"
#include "cli/folder_watch.h"
#include "cli/method_lookup.h"
#include "cli/printable.h"
#include "cli/run.h"
#include "cli/saving.h"
#include "cli/usage_error.h"
#include "drawing/utf8_path.h"

namespace velmar::cli {
namespace {

struct CallOptions {
  std::string method;
  // One slot for each possible argument, since the parser would split "[a,b]" in a list of them.
  std::array<std::string, Method::most_parameters + 1> slots;
  std::vector<std::string> words;
  std::vector<std::string> drawings, answers;
  std::string answers_file;
  SavingOptions saving;
  bool json = false;
};

void append_lines(std::istream& file, std::vector<std::string>& lines) {
  for (std::string line; std::getline(file, line);) {
    if (line.ends_with('\r')) line.pop_back();
    lines.push_back(std::move(line));
  }
}

/// The answers of the command line, then those of the file.
std::vector<std::string> read_answers(const CallOptions& options) {
  std::vector<std::string> answers = options.answers;
  if (options.answers_file == "-") {
    append_lines(std::cin, answers);
  } else if (!options.answers_file.empty()) {
    std::ifstream file(drawing::utf8_path(options.answers_file));
    append_lines(file, answers);
    if (file.bad() || !file.eof()) {
      throw UsageError(options.answers_file + ": the answers cannot be read");
    }
  }
  return answers;
}

ExitCode report(const CallRecord& record, bool json) {
  print(json ? to_text(call_json(record)) : call_text(record));
  tell_refused(record);
  if (record.failure) complain(failure_text(*record.failure));
  if (record.drawing_failure) complain(printable(*record.drawing_failure));
  if (record.drawing_failure) return ExitCode::drawing_failed;
  return record.failure ? ExitCode::method_failed : ExitCode::done;
}

ExitCode call_method(const CallOptions& options) {
  CallRecord record;
  record.method = &require_method(options.method);
  record.arguments = read_arguments(*record.method, options.words);
  check_saving(options.saving, options.drawings);
  embedded::ScriptedInput input(read_answers(options));
  try {
    Run run(options.drawings, input, options.saving.journal);
    if (options.saving.dry_run) run.begin_dry_run();
    FolderWatch folder(run, options.saving.journal);
    try {
      run.call(record);
      folder.check();
    } catch (const Cancelled&) {
      complain(folder.take_back());
      return ExitCode::interrupted;
    }
    record.transcript = input.transcript();
    if (!record.failure && input.left() > 0) {
      complain("answers that were not asked for: " + std::to_string(input.left()));
    }
    save(run, options.saving, record);
  } catch (const drawing::Error& error) {
    record.drawing_failure = error.what();
  }
  return report(record, options.json);
}

class CallFormatter : public CLI::Formatter {
 public:
  std::string make_usage(const CLI::App*, std::string name) const override {
    return "Usage: " + name + " [OPTIONS] METHOD [ARG...]\n";
  }
};

void add_options(CLI::App& command, CallOptions& options) {
  command.add_option("METHOD", options.method, "The method, in any letter case")->required();
  for (std::size_t i = 0; i < options.slots.size(); ++i) {
    command.add_option("ARG" + std::to_string(i + 1), options.slots[i])->group("");
  }
  const auto add_list = [&](const char* name, std::vector<std::string>& list, const char* help) {
    command.add_option(name, list, help)->allow_extra_args(false);
  };
  add_list("-d,--drawing", options.drawings, "Open this drawing (repeatable; the first is active)");
  add_list("-a,--answer", options.answers, "The next answer to a question (repeatable)");
  command.add_option("--answers", options.answers_file,
                     "Answers from a file, one a line; - is standard input");
  add_saving_options(command, options.saving);
  command.add_flag("--json", options.json, "Write JSON");
}

constexpr const char* about_arguments =
    "Arguments stand in the published order ('velmar methods METHOD' shows it):\n"
    "  -        alone leaves an optional argument out\n"
    "  'text'   in single quotes is text even where it reads as a number\n"
    "  x,y[,z]  is a point\n"
    "  --       before arguments that begin with a minus sign and are no numbers\n"
    "An empty answer is Enter, ^C is Escape, #2F is the entity of that handle.";

}  // namespace

void add_call(CLI::App& program, Action& action) {
  const auto options = std::make_shared<CallOptions>();
  CLI::App* const command = program.add_subcommand("call", "Run a method, on drawings or on none");
  command->formatter(std::make_shared<CallFormatter>());
  command->footer(about_arguments);
  add_options(*command, *options);
  command->callback([options, command, &action] {
    for (std::size_t i = 0; i < options->slots.size(); ++i) {
      if (command->count("ARG" + std::to_string(i + 1)) > 0) {
        options->words.push_back(options->slots[i]);
      }
    }
    action = [options] { return call_method(*options); };
  });
}

}  // namespace velmar::cli
