#pragma once

#include <deque>
#include <string>
#include <variant>
#include <vector>

#include "embedded/input.h"

namespace velmar::embedded {

struct Asked {
  std::string prompt;
  std::optional<std::string> answer;  // nothing: cancelled
  friend bool operator==(const Asked&, const Asked&) = default;
};
struct Said {
  std::string text;
  friend bool operator==(const Said&, const Said&) = default;
};
/// Questions and messages in the order in which they came.
using Transcript = std::vector<std::variant<Asked, Said>>;

/// Answers given beforehand. "^C" is Escape; when they have run out every question is cancelled.
class ScriptedInput : public Input {
 public:
  explicit ScriptedInput(std::vector<std::string> answers = {})
      : answers_(answers.begin(), answers.end()) {}

  void add(std::string answer) { answers_.push_back(std::move(answer)); }
  std::size_t left() const { return answers_.size(); }
  const Transcript& transcript() const { return transcript_; }

  std::optional<std::string> answer(const Question& question) override;
  void say(std::string_view text) override;
  bool prepare(std::string answer) override;
  std::string written() const override;
  void forget_written() override { transcript_.clear(); }
  std::string why_cancelled() const override { return why_cancelled_; }

 private:
  std::deque<std::string> answers_;
  Transcript transcript_;
  std::string why_cancelled_;
};

}  // namespace velmar::embedded
