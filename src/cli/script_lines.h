#pragma once

#include <cstddef>
#include <istream>
#include <memory>
#include <string>

#include "cli/lines.h"

namespace velmar::cli {

/// The lines of a script: a command, then its answers, one a line. A line that begins with a
/// semicolon is a comment, one that begins with "\;" begins with the semicolon. An empty line is
/// Enter where a question is asked, else nothing; ^C is Escape.
class ScriptLines : public Lines {
 public:
  /// Fails with drawing::Error where the file cannot be read.
  explicit ScriptLines(const std::string& file);
  /// Of standard input, each read when it is needed.
  ScriptLines();

  std::optional<std::string> command() override;
  std::optional<std::string> answer(const std::string& prompt,
                                    const std::vector<std::string>& offered) override;
  std::string why_cancelled() const override { return why_cancelled_; }

  /// "numbers.scr, line 12": the last command.
  std::string where() const;

 private:
  std::optional<std::string> next();

  std::string name_;
  std::unique_ptr<std::istream> file_;  // null: standard input
  std::istream& input_;
  std::size_t read_ = 0, command_ = 0;
  std::string why_cancelled_;
};

/// The answer as a script has it: read again it is the same.
std::string script_line(const std::optional<std::string>& answer);

}  // namespace velmar::cli
