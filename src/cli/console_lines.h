#pragma once

#include "cli/conversation.h"
#include "cli/line_editor.h"
#include "cli/lines.h"

namespace velmar::cli {

/// What is written to the terminal between lines that are typed there.
class Screen {
 public:
  /// As the host says it: a line break may come first, and none at the end.
  void say(std::string_view text);
  /// What is written next begins a line.
  void begin_line();

 private:
  bool at_line_begin_ = true;
};

/// Lines of a user at the terminal.
class ConsoleLines : public Lines {
 public:
  /// `complete` is asked for what could follow on a command line.
  ConsoleLines(Screen& screen, Complete complete)
      : screen_(screen), complete_(std::move(complete)) {}

  std::optional<std::string> command() override;
  std::optional<std::string> answer(const std::string& prompt,
                                    const std::vector<std::string>& offered) override;
  bool has_user() const override { return !is_gone_; }

 private:
  Screen& screen_;
  Complete complete_;
  LineEditor editor_;
  bool is_gone_ = false;
};

/// Shows at once what the host says.
class ConsoleConversation : public Conversation {
 public:
  ConsoleConversation(Lines& lines, Screen& screen) : Conversation(lines), screen_(screen) {}

  void say(std::string_view text) override { screen_.say(text); }

 private:
  Screen& screen_;
};

}  // namespace velmar::cli
