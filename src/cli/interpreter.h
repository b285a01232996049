#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "cli/call_record.h"
#include "cli/conversation.h"
#include "cli/recorded_lines.h"
#include "cli/run.h"

namespace velmar::cli {

/// Carries out command lines: a method of the class with its arguments, or a command about the
/// session (OPEN, SAVE, HELP ...). Required arguments that are missing are asked for by name. Each
/// command is one step of undo in every drawing that it changes.
class Interpreter {
 public:
  /// Told of each method when it has run.
  using Report = std::function<void(const CallRecord& record)>;

  Interpreter(Run& run, RecordedLines& lines, Conversation& conversation, Report report)
      : run_(run), lines_(lines), conversation_(conversation), report_(std::move(report)) {}

  /// Whether the command did what it should. What failed has been told. Fails with UsageError for a
  /// line that is no command, with drawing::Error where a drawing cannot be read or written.
  bool execute(const std::string& line);
  /// The same, but what it fails with is told, and the line did not do what it should.
  bool execute_or_complain(const std::string& line);
  bool wants_to_quit() const { return quits_; }

  static std::vector<std::string> command_names();

 private:
  using Words = std::span<const std::string>;
  struct Command {
    std::string_view name;
    std::string_view parameters;
    std::string_view help;
    void (Interpreter::*run)(Words words);
    bool is_recorded = true;
  };
  static const Command commands[];
  static const Command* find_command(std::string_view name);

  bool call(const Method& method, Words words);
  std::vector<basic::Value> arguments_of(const Method& method, Words words);
  std::string ask_for(const Method& method, std::size_t parameter);
  /// Ends the step in all drawings; what it did to each.
  std::vector<DrawingChanges> end_step(std::string_view name);

  void open(Words words);
  void save(Words words);
  void save_as(Words words);
  void close(Words words);
  void drawings(Words words);
  void use(Words words);
  void list(Words words);
  void layers(Words words);
  void undo(Words words);
  void redo(Words words);
  void record(Words words);
  void help(Words words);
  void quit(Words words);

  static std::string help_on(const Command& command);
  embedded::DocumentPointer active() const;
  std::vector<drawing::RecordId> selected(Words words);
  void start_recording(const std::string& file);
  /// Whether the session may go on without the drawing's changes.
  bool may_drop_changes(const embedded::DocumentPointer& document);
  void save(embedded::DocumentState& document) const;

  Run& run_;
  RecordedLines& lines_;
  Conversation& conversation_;
  Report report_;
  bool quits_ = false;
};

}  // namespace velmar::cli
