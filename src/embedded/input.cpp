#include "embedded/input.h"

#include <array>

#include "embedded/errors.h"

namespace velmar::embedded {

std::string_view in_words(QuestionKind kind) {
  constexpr auto words = std::to_array<std::string_view>(
      {"an entity", "a selection", "a point", "a corner", "a distance", "an angle",
       "an orientation", "a number", "an integer", "a text", "a keyword"});
  static_assert(words.size() == static_cast<std::size_t>(QuestionKind::keyword) + 1);
  return words[static_cast<std::size_t>(kind)];
}

basic::Failure cancelled(host::Member method, std::string_view interface_name, const Input& input) {
  std::string description = "Method '" + std::string(host::spelling(method)) + "' of object '" +
                            std::string(interface_name) + "' failed";
  const std::string why = input.why_cancelled();
  if (!why.empty()) description += ": " + why;
  return failure(HostError::cancelled, std::move(description));
}

}  // namespace velmar::embedded
