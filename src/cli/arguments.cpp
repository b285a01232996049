#include "cli/arguments.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <string_view>

#include "basic/failure.h"
#include "basic/rounding.h"
#include "basic/strings.h"
#include "cli/method_lookup.h"
#include "cli/usage_error.h"

namespace velmar::cli {
namespace {

using basic::Value;

/// A decimal number with a point, whatever the locale; nothing for all that is not finite.
std::optional<double> read_number(std::string_view text) {
  if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
  double number = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc() || stop != end || !std::isfinite(number)) return std::nullopt;
  return number;
}

/// Three numbers for "x,y" and "x,y,z"; z is 0 where it is not given.
std::optional<basic::Doubles> read_point(std::string_view text) {
  basic::Doubles point;
  while (true) {
    const std::size_t comma = text.find(',');
    const std::optional<double> coordinate = read_number(text.substr(0, comma));
    if (!coordinate || point.size() == 3) return std::nullopt;
    point.push_back(*coordinate);
    if (comma == std::string_view::npos) break;
    text.remove_prefix(comma + 1);
  }
  if (point.size() < 2) return std::nullopt;
  point.resize(3);
  return point;
}

template <class Integer>
bool holds(double number) {
  return number >= std::numeric_limits<Integer>::min() &&
         number <= std::numeric_limits<Integer>::max();
}

/// A whole number written without point and exponent is an integer, as in Basic.
Value smallest_number(double number, std::string_view written) {
  if (written.find_first_of(".eE") != std::string_view::npos) return number;
  if (holds<std::int16_t>(number)) return basic::to_int16(number);
  if (holds<std::int32_t>(number)) return basic::to_int32(number);
  return number;
}

Value read_variant(const std::string& word) {
  if (const auto number = read_number(word)) return smallest_number(*number, word);
  if (const auto point = read_point(word)) return *point;
  return word;
}

[[noreturn]] void refuse(const Parameter& parameter, const std::string& word,
                         std::string_view expected) {
  throw UsageError(std::string(parameter.name) + " must be " + std::string(expected) + ", not \"" +
                   word + "\"");
}

double require_number(const Parameter& parameter, const std::string& word) {
  const auto number = read_number(word);
  if (!number) refuse(parameter, word, "a number");
  return *number;
}

bool read_boolean(const Parameter& parameter, const std::string& word) {
  if (basic::equal_ignoring_case(word, "true")) return true;
  if (basic::equal_ignoring_case(word, "false")) return false;
  const auto number = read_number(word);
  if (!number) refuse(parameter, word, "true or false");
  return *number != 0;
}

template <class Integer>
Value read_integer(const Parameter& parameter, const std::string& word) {
  const double number = require_number(parameter, word);
  try {
    if constexpr (sizeof(Integer) == 2) return basic::to_int16(number);
    return basic::to_int32(number);
  } catch (const basic::Failure&) {
    refuse(parameter, word, sizeof(Integer) == 2 ? "from -32768 to 32767" : "a 32-bit integer");
  }
}

Value read_argument(const Parameter& parameter, const std::string& word) {
  if (word == "-") {
    if (!parameter.optional) throw UsageError(std::string(parameter.name) + " cannot be left out");
    return basic::LeftOut{};
  }
  const bool quoted = word.size() >= 2 && word.front() == '\'' && word.back() == '\'';
  if (quoted) return word.substr(1, word.size() - 2);
  switch (parameter.type) {
    case ValueType::boolean:
      return read_boolean(parameter, word);
    case ValueType::int16:
      return read_integer<std::int16_t>(parameter, word);
    case ValueType::int32:
      return read_integer<std::int32_t>(parameter, word);
    case ValueType::number:
      return require_number(parameter, word);
    case ValueType::variant:
      return read_variant(word);
    case ValueType::text:
    case ValueType::none:
      break;
  }
  return word;
}

std::vector<Value> read_all(const Method& method, std::span<const std::string> words) {
  const std::span<const Parameter> parameters = method.parameters();
  if (words.size() > parameters.size()) {
    throw UsageError(std::to_string(words.size()) + " arguments are too many");
  }
  std::vector<Value> arguments(parameters.size(), basic::LeftOut{});
  for (std::size_t i = 0; i < parameters.size(); ++i) {
    if (i < words.size()) {
      arguments[i] = read_argument(parameters[i], words[i]);
    } else if (!parameters[i].optional) {
      throw UsageError(std::string(parameters[i].name) + " is missing");
    }
  }
  return arguments;
}

}  // namespace

std::optional<std::string> refusal(const Method& method, std::size_t parameter,
                                   const std::string& word) {
  try {
    read_argument(method.parameters()[parameter], word);
    return std::nullopt;
  } catch (const UsageError& error) {
    return error.what();
  }
}

std::vector<Value> read_arguments(const Method& method, std::span<const std::string> words) {
  try {
    return read_all(method, words);
  } catch (const UsageError& error) {
    throw UsageError(std::string(method.name) + ": " + error.what() + "\nusage: velmar call " +
                     signature(method));
  }
}

}  // namespace velmar::cli
