#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace velmar {

/// What a reader sees of a multi-line text without a break or a formatting code in it.
struct PlainRun {
  std::string text;
  /// Where each of its bytes comes from in the content, and, as one more, where the run ends.
  std::vector<std::size_t> at;
};

/// The contents of a multi-line text, apart from what only gives it form. Escaped characters
/// (`\\`, `\{`, `\}`, `\~`, `\U+hhhh`) are plain; `\P`, groups and codes with their arguments end a
/// run. A code that is not known has no argument.
struct ParagraphText {
  explicit ParagraphText(std::string_view content);

  bool is_empty() const { return runs.empty() && !has_fractions; }
  /// Whether it is one run, with nothing else to see.
  bool is(std::string_view text) const;

  std::vector<PlainRun> runs;  // none is empty
  bool has_breaks = false, has_fractions = false;
};

/// Plain text as it stands in the contents of a multi-line text.
std::string escaped(std::string_view plain);

}  // namespace velmar
