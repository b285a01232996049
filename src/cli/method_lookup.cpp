#include "cli/method_lookup.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "cli/usage_error.h"
#include "component/method_table.h"
#include "component/method_words.h"

namespace velmar::cli {
namespace {

std::string lower(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
  return result;
}

/// How many letters to add, drop or change to make one text of the other.
std::size_t distance(std::string_view from, std::string_view to) {
  std::vector<std::size_t> row(to.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 0; i < from.size(); ++i) {
    std::size_t diagonal = std::exchange(row[0], i + 1);
    for (std::size_t j = 0; j < to.size(); ++j) {
      const std::size_t change = diagonal + (from[i] == to[j] ? 0 : 1);
      diagonal = row[j + 1];
      row[j + 1] = std::min({change, row[j] + 1, row[j + 1] + 1});
    }
  }
  return row.back();
}

}  // namespace

std::vector<std::string_view> nearest_methods(std::string_view name) {
  const std::string wanted = lower(name);
  const std::size_t tolerated = std::max<std::size_t>(1, wanted.size() / 3);
  std::vector<std::pair<std::size_t, std::string_view>> candidates;
  for (const Method& method : methods()) {
    const std::string published = lower(method.name);
    const bool is_part = wanted.size() >= 3 && published.find(wanted) != std::string::npos;
    const std::size_t far = distance(wanted, published);
    if (is_part || far <= tolerated) candidates.emplace_back(far, method.name);
  }
  std::stable_sort(candidates.begin(), candidates.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  std::vector<std::string_view> names;
  for (const auto& [far, published] : candidates) names.push_back(published);
  if (names.empty() && wanted.size() >= 3) {
    for (const Method* method : methods_about(name)) names.push_back(method->name);
  }
  names.resize(std::min<std::size_t>(names.size(), 3));
  return names;
}

const Method& require_method(std::string_view name) {
  if (const Method* const method = find_method(name)) return *method;
  std::string message = "there is no method \"" + std::string(name) + "\"";
  std::string_view before = "; did you mean ";
  for (const std::string_view near : nearest_methods(name)) {
    message.append(before).append(near);
    before = ", ";
  }
  message += before == ", " ? "?" : "";
  throw UsageError(message + "\n'velmar methods' lists all methods.");
}

std::string signature(const Method& method) {
  std::string text(method.name);
  for (const Parameter& parameter : method.parameters()) {
    text += parameter.optional ? " [" : " ";
    text += parameter.name;
    if (parameter.optional) text += "]";
  }
  return text;
}

}  // namespace velmar::cli
