#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace velmar::cli {

/// The program at a terminal of its own, with somebody who types there and reads along.
class Terminal {
 public:
  /// Starts `velmar` with these arguments in a folder; `settings` are variables ("NO_COLOR=1").
  Terminal(const std::vector<std::string>& arguments, const std::filesystem::path& folder,
           const std::vector<std::string>& settings = {});
  ~Terminal();
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;

  void type(std::string_view keys);
  /// Waits until this is written behind what was waited for before; what was written up to there,
  /// without carriage returns. Fails the test after a while.
  std::string expect(std::string_view text);
  /// Types a line and waits for the next prompt; what was written between.
  std::string enter(std::string_view line);
  void resize(unsigned short columns);
  /// Waits for the program's end; -1 where it does not end.
  int exit_code();

 private:
  bool read_more();
  void wait_for_editor() const;

  pid_t program_ = 0;
  int terminal_ = -1;
  std::string unread_;
};

}  // namespace velmar::cli
