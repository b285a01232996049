#include "embedded/keywords.h"

#include "embedded/answers.h"

namespace velmar::embedded {
namespace {

std::string abbreviation(std::string_view keyword) {
  std::string capitals;
  for (const char c : keyword) {
    if (c >= 'A' && c <= 'Z') capitals += c;
  }
  return capitals;
}

}  // namespace

Keywords::Keywords(std::string_view list) {
  for (list = trimmed(list); !list.empty(); list = trimmed(list)) {
    const std::string_view word = list.substr(0, list.find(' '));
    words_.emplace_back(word);
    list.remove_prefix(word.size());
  }
}

std::optional<std::string> Keywords::find(std::string_view typed) const {
  if (typed.empty()) return std::nullopt;
  for (const std::string& word : words_) {
    if (same_word(word, typed)) return word;
  }
  for (const std::string& word : words_) {
    if (same_word(abbreviation(word), typed)) return word;
  }
  return std::nullopt;
}

std::optional<std::string> Keywords::find_by_beginning(std::string_view typed) const {
  std::optional<std::string> found;
  if (typed.empty()) return found;
  for (const std::string& word : words_) {
    if (!same_word(word.substr(0, typed.size()), typed)) continue;
    if (found) return std::nullopt;
    found = word;
  }
  return found;
}

std::string Keywords::in_words() const {
  std::string text;
  for (std::size_t i = 0; i < words_.size(); ++i) {
    if (i > 0) text += i + 1 == words_.size() ? " or " : ", ";
    text += words_[i];
  }
  return text;
}

}  // namespace velmar::embedded
