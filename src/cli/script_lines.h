#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "cli/lines.h"

namespace velmar::cli {

/// The lines of a script file: a command, then its answers, one a line. A line that begins with a
/// semicolon is a comment. An empty line is Enter where a question is asked, else nothing; ^C is
/// Escape.
class ScriptLines : public Lines {
 public:
  /// Fails with drawing::Error where the file cannot be read.
  explicit ScriptLines(const std::string& file);

  std::optional<std::string> command() override;
  std::optional<std::string> answer(const std::string& prompt) override;
  std::string why_cancelled() const override { return why_cancelled_; }

  /// "numbers.scr, line 12": the last command.
  std::string where() const;

 private:
  std::optional<std::string> next();

  std::string file_;
  std::vector<std::string> lines_;
  std::size_t next_ = 0, command_ = 0;
  std::string why_cancelled_;
};

}  // namespace velmar::cli
