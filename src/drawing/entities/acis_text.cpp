#include "drawing/entities/acis_text.h"

#include <charconv>

namespace velmar::drawing {
namespace {

std::vector<std::string_view> split(std::string_view text) {
  std::vector<std::string_view> tokens;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t begin = text.find_first_not_of(' ', at);
    if (begin == text.npos) break;
    at = std::min(text.find(' ', begin), text.size());
    tokens.push_back(text.substr(begin, at - begin));
  }
  return tokens;
}

template <class Number>
std::optional<Number> number(std::string_view token) {
  Number value{};
  const auto [end, error] = std::from_chars(token.data(), token.data() + token.size(), value);
  if (error != std::errc() || end != token.data() + token.size()) return std::nullopt;
  return value;
}

void take(AcisRecord& record, std::string_view token) {
  if (token.starts_with('$')) {
    record.references.push_back(number<int>(token.substr(1)).value_or(-1));
    record.numbers.clear();
  } else if (const auto value = number<double>(token); value && record.words.empty()) {
    record.numbers.push_back(*value);
  } else {
    record.words.emplace_back(token);
  }
}

}  // namespace

std::string mirrored(std::string_view line) {
  constexpr int mirror = 159;
  std::string text;
  for (const char c : line) {
    const auto code = static_cast<unsigned char>(c);
    text += code <= ' ' || code >= mirror - ' ' ? ' ' : static_cast<char>(mirror - code);
  }
  return text;
}

std::optional<std::vector<AcisRecord>> acis_records(const std::vector<std::string>& disguised) {
  std::vector<AcisRecord> records;
  if (disguised.size() <= acis_header_lines) return std::nullopt;
  bool begins = true;
  for (std::size_t i = acis_header_lines; i < disguised.size(); ++i) {
    const std::string line = mirrored(disguised[i]);
    for (const std::string_view token : split(line)) {
      if (token == "#") {
        begins = true;
      } else if (begins) {
        records.emplace_back().kind = token;
        begins = false;
      } else {
        take(records.back(), token);
      }
    }
  }
  if (records.empty()) return std::nullopt;
  return records;
}

}  // namespace velmar::drawing
