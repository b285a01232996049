#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "embedded/document_state.h"
#include "embedded/input.h"

namespace velmar::embedded {

/// What SendCommand types: words that a blank or a line end completes, first the name of a command
/// and then its answers. Text behind the last of these waits for more; a command that lacks answers
/// waits for them. What goes wrong is told on the command line, and the command ends.
class CommandLine {
 public:
  CommandLine(DocumentPointer document, Input& input)
      : document_(std::move(document)), input_(input) {}

  void send(std::string_view text);

 private:
  /// A command in progress: takes one answer, and tells whether it waits for another.
  using Step = bool (CommandLine::*)(const std::string& answer);
  struct Command {
    std::string_view name;
    std::string_view prompt;  // empty: it has no questions
    Step step;
  };
  static const Command commands[];

  void take(const std::string& word);
  void begin(const std::string& name);
  void say(std::string_view line) { input_.say("\r\n" + std::string(line)); }
  /// The message, and the end of the command.
  bool refuse(std::string_view message);

  bool not_available(const std::string& name);
  bool linear_dimension(const std::string& answer);
  void add_linear_dimension(drawing::Point location);
  std::optional<drawing::Point> point(const std::string& answer) const;

  DocumentPointer document_;
  Input& input_;
  std::string pending_;
  const Command* running_ = nullptr;
  std::vector<drawing::Point> points_;  // that the running command was given
  std::string orientation_;             // "H", "V" or empty, of a linear dimension
};

}  // namespace velmar::embedded
