#include "embedded/dialogue.h"

namespace velmar::embedded {

InputRules Dialogue::take_rules() {
  keyword_.clear();
  return std::exchange(rules_, {});
}

std::string Dialogue::line(host::Member method, Question question, const InputRules& rules) {
  question.keywords = rules.keywords.words();
  std::optional<std::string> typed = input_.answer(question);
  if (!typed) throw cancelled(method);
  return std::move(*typed);
}

basic::Failure Dialogue::cancelled(host::Member method) const {
  return embedded::cancelled(method, "IAcadUtility", input_);
}

void Dialogue::end_if_keyword(std::optional<std::string> keyword) {
  if (!keyword) return;
  keyword_ = std::move(*keyword);
  throw failure(HostError::keyword);
}

}  // namespace velmar::embedded
