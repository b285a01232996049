#pragma once

#include <string>

#include "cli/lines.h"
#include "embedded/input.h"
#include "embedded/scripted_input.h"

namespace velmar::cli {

/// The user of the host, where answers come from the same lines as commands.
class Conversation : public embedded::Input {
 public:
  explicit Conversation(Lines& lines) : lines_(lines) {}

  std::optional<std::string> answer(const embedded::Question& question) override;
  void say(std::string_view text) override;
  std::string why_cancelled() const override { return lines_.why_cancelled(); }

  /// What was asked and said since this was last called.
  embedded::Transcript take_transcript();

 private:
  Lines& lines_;
  embedded::Transcript transcript_;
};

}  // namespace velmar::cli
