#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "embedded/answers.h"
#include "embedded/errors.h"
#include "embedded/input.h"
#include "embedded/keywords.h"
#include "embedded/picked.h"

namespace velmar::embedded {

/// What one question accepts besides its own kind of answer.
struct InputRules {
  static constexpr std::int32_t no_enter = 1, no_zero = 2, no_negative = 4, any_text = 128;

  std::int32_t bits = 0;
  Keywords keywords;

  bool has(std::int32_t bit) const { return (bits & bit) != 0; }
};

/// Asks until an answer can be used.
class Dialogue {
 public:
  explicit Dialogue(Input& input) : input_(input) {}

  /// The rules of the next question only.
  void set_rules(InputRules rules) { rules_ = std::move(rules); }
  /// Begins a question: the rules no longer hold for the one after it, the keyword is forgotten.
  InputRules take_rules();
  /// What was typed in place of an answer: a keyword or text; empty where it was Enter.
  const std::string& keyword() const { return keyword_; }

  void say(std::string_view text) { input_.say(text); }
  /// Tells the user why his answer cannot be used.
  void refuse(std::string_view reason) { input_.say("\r\n" + std::string(reason)); }
  /// The line as typed; fails as cancelled.
  std::string line(host::Member method, Question question, const InputRules& rules = {});
  basic::Failure cancelled(host::Member method) const;

  /// A value that `read` (text to Reading<T>) accepts. Keywords and, where the rules allow it,
  /// Enter and other text are the keyword failure.
  template <class T, class Read>
  T ask(host::Member method, const Question& question, const InputRules& rules, Read read);

 private:
  void end_if_keyword(std::optional<std::string> keyword);

  Input& input_;
  InputRules rules_;
  std::string keyword_;
};

template <class T, class Read>
T Dialogue::ask(host::Member method, const Question& question, const InputRules& rules, Read read) {
  for (;;) {
    const std::string typed(trimmed(line(method, question, rules)));
    if (typed.empty()) {
      if (question.kind == QuestionKind::entity) throw cancelled(method);
      if (!rules.has(InputRules::no_enter)) end_if_keyword("");
      refuse("Requires " + std::string(in_words(question.kind)) + ".");
      continue;
    }
    end_if_keyword(rules.keywords.find(typed));
    Reading<T> reading = read(typed);
    if (reading.value) return std::move(*reading.value);
    end_if_keyword(rules.keywords.find_by_beginning(typed));
    if (rules.has(InputRules::any_text)) end_if_keyword(typed);
    if (!rules.keywords.empty()) reading.refused += " Or: " + rules.keywords.in_words() + ".";
    refuse(reading.refused);
  }
}

}  // namespace velmar::embedded
