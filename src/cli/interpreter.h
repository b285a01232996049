#pragma once

#include <span>
#include <string>
#include <string_view>

#include "cli/call_record.h"
#include "cli/conversation.h"
#include "cli/lines.h"
#include "cli/run.h"

namespace velmar::cli {

/// Carries out command lines: a method of the class with its arguments, or a command about the
/// session (OPEN, SAVE, HELP ...). Required arguments that are missing are asked for by name.
class Interpreter {
 public:
  /// Told of each method when it has run.
  using Report = void (*)(const CallRecord& record);

  Interpreter(Run& run, Lines& lines, Conversation& conversation, Report report)
      : run_(run), lines_(lines), conversation_(conversation), report_(report) {}

  /// Whether the command did what it should. What failed has been told. Fails with UsageError for a
  /// line that is no command, with drawing::Error where a drawing cannot be read or written.
  bool execute(const std::string& line);
  bool wants_to_quit() const { return quits_; }

 private:
  using Words = std::span<const std::string>;
  struct Command {
    std::string_view name;
    std::string_view parameters;
    std::string_view help;
    void (Interpreter::*run)(Words words);
  };
  static const Command commands[];
  static const Command* find_command(std::string_view name);

  bool call(const Method& method, Words words);
  std::vector<basic::Value> arguments_of(const Method& method, Words words);

  void open(Words words);
  void save(Words words);
  void save_as(Words words);
  void close(Words words);
  void drawings(Words words);
  void help(Words words);
  void quit(Words words);

  embedded::DocumentPointer active() const;

  Run& run_;
  Lines& lines_;
  Conversation& conversation_;
  Report report_;
  bool quits_ = false;
};

}  // namespace velmar::cli
