#include "embedded/wildcard.h"

#include "embedded/answers.h"

namespace velmar::embedded {
namespace {

/// Tries the shortest reading of the last `*` first and widens it where the rest does not fit.
bool matches_one(std::string_view pattern, std::string_view text) {
  constexpr std::size_t none = std::string_view::npos;
  std::size_t p = 0, t = 0, after_star = none, resume = 0;
  while (t < text.size()) {
    if (p < pattern.size() && pattern[p] == '*') {
      after_star = ++p;
      resume = t;
    } else if (p < pattern.size() &&
               (pattern[p] == '?' || same_word(pattern.substr(p, 1), text.substr(t, 1)))) {
      ++p;
      ++t;
    } else if (after_star != none) {
      p = after_star;
      t = ++resume;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of('*', p) == none;
}

}  // namespace

bool matches(std::string_view patterns, std::string_view text) {
  for (;;) {
    const std::size_t comma = patterns.find(',');
    if (matches_one(trimmed(patterns.substr(0, comma)), text)) return true;
    if (comma == std::string_view::npos) return false;
    patterns.remove_prefix(comma + 1);
  }
}

}  // namespace velmar::embedded
