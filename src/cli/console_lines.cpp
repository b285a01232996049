#include "cli/console_lines.h"

#include "basic/strings.h"
#include "cli/completion.h"
#include "cli/console.h"
#include "cli/printable.h"

namespace velmar::cli {

void Screen::say(std::string_view text) {
  std::string shown = basic::replace(text, "\r", "");
  if (at_line_begin_ && shown.starts_with('\n')) shown.erase(0, 1);
  if (shown.empty()) return;
  print(shown);
  at_line_begin_ = shown.ends_with('\n');
}

void Screen::begin_line() {
  if (!at_line_begin_) print("\n");
  at_line_begin_ = true;
}

std::optional<std::string> ConsoleLines::command() {
  for (;;) {
    screen_.begin_line();
    Typed typed = editor_.read("Command: ", complete_);
    is_gone_ = is_gone_ || typed.end == TypedEnd::gone;
    if (typed.end == TypedEnd::gone) return std::nullopt;
    if (typed.end == TypedEnd::ended) return "QUIT";
    if (typed.end == TypedEnd::cancelled || basic::trim(typed.line).empty()) continue;
    editor_.remember(typed.line);
    return std::move(typed.line);
  }
}

std::optional<std::string> ConsoleLines::answer(const std::string& prompt,
                                                const std::vector<std::string>& offered) {
  screen_.begin_line();
  const std::string text = basic::replace(prompt, "\r", "");
  const std::size_t line = text.find_last_of('\n') + 1;
  if (line > 1) screen_.say(text.substr(0, line));
  const Complete complete = [&](std::string_view typed) { return beginning(typed, offered); };
  std::string question = printable(text.substr(line));
  if (!question.ends_with(' ')) question += ' ';
  Typed typed = editor_.read(question, complete);
  is_gone_ = is_gone_ || typed.end == TypedEnd::gone;
  if (typed.end != TypedEnd::entered || typed.line == cancel_mark) return std::nullopt;
  return std::move(typed.line);
}

}  // namespace velmar::cli
