#include "cli/conversation.h"

#include <utility>

namespace velmar::cli {

std::optional<std::string> Conversation::answer(const embedded::Question& question) {
  std::optional<std::string> answer = lines_.answer(question.prompt, question.keywords);
  transcript_.emplace_back(embedded::Asked{question.prompt, answer});
  return answer;
}

void Conversation::say(std::string_view text) {
  transcript_.emplace_back(embedded::Said{std::string(text)});
}

embedded::Transcript Conversation::take_transcript() { return std::exchange(transcript_, {}); }

}  // namespace velmar::cli
