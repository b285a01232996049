#pragma once

#include <fstream>
#include <string>
#include <vector>

#include "cli/lines.h"

namespace velmar::cli {

/// Lines, and on request a script of them that does the same again.
class RecordedLines : public Lines {
 public:
  explicit RecordedLines(Lines& lines) : lines_(lines) {}

  std::optional<std::string> command() override;
  std::optional<std::string> answer(const std::string& prompt,
                                    const std::vector<std::string>& offered) override;
  bool has_user() const override { return lines_.has_user(); }
  std::string why_cancelled() const override { return lines_.why_cancelled(); }

  /// Fails with drawing::Error where the file cannot be written, or is there already.
  void start(const std::string& file);
  /// The file that was written; empty where none was.
  std::string stop();
  bool is_recording() const { return !file_.empty(); }
  void write(const std::string& line);
  /// The last answer was of no use, and is asked for again.
  void take_back();
  /// The last command, with its answers, is one of the script; `done`: it did what it should.
  void keep(bool done);
  /// Commands of the script that did not.
  std::size_t failed() const { return failed_; }

 private:
  Lines& lines_;
  std::vector<std::string> latest_;  // a command and its answers
  std::string file_;
  std::ofstream script_;
  std::size_t failed_ = 0;
};

}  // namespace velmar::cli
