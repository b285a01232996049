#include "embedded/scripted_input.h"

namespace velmar::embedded {
namespace {

/// The prompt on one line, without the blanks and line breaks around it.
std::string bare(std::string_view prompt) {
  constexpr std::string_view blanks = " \t\r\n";
  const std::size_t begin = prompt.find_first_not_of(blanks);
  if (begin == std::string_view::npos) return {};
  return std::string(prompt.substr(begin, prompt.find_last_not_of(blanks) - begin + 1));
}

}  // namespace

std::optional<std::string> ScriptedInput::answer(const Question& question) {
  std::optional<std::string> given;
  why_cancelled_.clear();
  if (answers_.empty()) {
    why_cancelled_ = "no answer is left for the question \"" + bare(question.prompt) +
                     "\", which asks for " + std::string(in_words(question.kind));
  } else {
    if (answers_.front() != "^C") given = std::move(answers_.front());
    answers_.pop_front();
  }
  transcript_.push_back(Asked{question.prompt, given});
  return given;
}

bool ScriptedInput::prepare(std::string answer) {
  add(std::move(answer));
  return true;
}

std::string ScriptedInput::written() const {
  std::string text;
  for (const auto& entry : transcript_) {
    if (const auto* asked = std::get_if<Asked>(&entry)) {
      text += asked->prompt + asked->answer.value_or("*Cancel*") + "\r\n";
    } else {
      text += std::get<Said>(entry).text;
    }
  }
  return text;
}

void ScriptedInput::say(std::string_view text) { transcript_.push_back(Said{std::string(text)}); }

}  // namespace velmar::embedded
