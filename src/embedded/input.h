#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "basic/failure.h"
#include "host/member.h"

namespace velmar::embedded {

enum class QuestionKind {
  entity,
  selection,
  point,
  corner,
  distance,
  angle,
  orientation,
  real,
  integer,
  text,
  keyword,
};

/// What the kind asks for, in words: "an entity".
std::string_view in_words(QuestionKind kind);

struct Question {
  QuestionKind kind;
  std::string prompt;  // as the caller gave it; usually begins with a line break
  std::vector<std::string> keywords = {};  // that are answers too
};

/// The user, as the host sees him: a console, a script, a page. What is typed is described in
/// answers.h; the utility reads it, and asks again when it cannot be used.
class Input {
 public:
  virtual ~Input() = default;
  /// The line as typed, empty for Enter; nothing when the question was cancelled, as by Escape.
  virtual std::optional<std::string> answer(const Question& question) = 0;
  /// Writes to the command line. No line break is added.
  virtual void say(std::string_view text) = 0;
  /// Takes an answer for a later question; false where answers are not taken beforehand.
  virtual bool prepare(std::string) { return false; }
  /// What was asked, answered and said so far, as it would stand on a command line, as far as it is
  /// kept.
  virtual std::string written() const { return {}; }
  virtual void forget_written() {}
  /// Why the last question was cancelled, where it was not the user's own wish; else empty.
  virtual std::string why_cancelled() const { return {}; }
};

/// The host's failure after a cancelled question: "Method 'GetEntity' of object 'IAcadUtility'
/// failed", and why where the input knows it.
basic::Failure cancelled(host::Member method, std::string_view interface_name, const Input& input);

}  // namespace velmar::embedded
