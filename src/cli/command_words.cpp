#include "cli/command_words.h"

#include "cli/usage_error.h"

namespace velmar::cli {
namespace {

constexpr std::string_view blanks = " \t\r";

bool ends_word(std::string_view line, std::size_t at) {
  return at >= line.size() || blanks.find(line[at]) != blanks.npos;
}

/// The end of the quote that opens at `open`; a single quote inside a word does not close.
std::size_t end_of_quote(std::string_view line, std::size_t open) {
  const char mark = line[open];
  for (std::size_t at = open + 1; at < line.size(); ++at) {
    if (line[at] == mark && (mark == '"' || ends_word(line, at + 1))) return at;
  }
  throw UsageError(std::string("a quote is not closed: ") + std::string(line.substr(open)));
}

std::string take_word(std::string_view line, std::size_t& at) {
  std::string word;
  if (line[at] == '\'') {
    const std::size_t end = end_of_quote(line, at) + 1;
    word = line.substr(at, end - at);
    at = end;
    return word;
  }
  while (!ends_word(line, at)) {
    if (line[at] == '"') {
      const std::size_t end = end_of_quote(line, at);
      word += line.substr(at + 1, end - at - 1);
      at = end + 1;
    } else {
      word += line[at++];
    }
  }
  return word;
}

}  // namespace

std::vector<std::string> command_words(std::string_view line) {
  std::vector<std::string> words;
  for (std::size_t at = line.find_first_not_of(blanks); at != line.npos;
       at = line.find_first_not_of(blanks, at)) {
    words.push_back(take_word(line, at));
  }
  return words;
}

}  // namespace velmar::cli
