#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmar::cli {

/// An answer that cancels the question.
inline constexpr std::string_view cancel_mark = "^C";

/// Where command lines and the answers between them come from: a script, or a user at a terminal.
class Lines {
 public:
  virtual ~Lines() = default;
  /// The next command line; nothing at the end.
  virtual std::optional<std::string> command() = 0;
  /// The answer to a question as it was typed, nothing where the question is cancelled; `offered`
  /// are some that could be given.
  virtual std::optional<std::string> answer(const std::string& prompt,
                                            const std::vector<std::string>& offered) = 0;
  /// Whether a user sees what is written and can be asked again.
  virtual bool has_user() const { return false; }
  /// Why the last question was cancelled, where it was not the user's wish; else empty.
  virtual std::string why_cancelled() const { return {}; }
};

}  // namespace velmar::cli
