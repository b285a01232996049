#include "embedded/answers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <numbers>

namespace velmar::embedded {
namespace {

using drawing::Point;

char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }
bool is_digit(char c) { return c >= '0' && c <= '9'; }

/// A decimal number without a sign that fills the text.
std::optional<double> read_unsigned(std::string_view text) {
  if (text.empty() || !(is_digit(text.front()) || text.front() == '.')) return std::nullopt;
  double number = 0;
  const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || stop != text.data() + text.size()) return std::nullopt;
  return number;
}

bool all_digits(std::string_view text) { return std::ranges::all_of(text, is_digit); }

/// "1/2" or "1-1/2", of whole numbers.
std::optional<double> read_fraction(std::string_view text) {
  const std::size_t slash = text.find('/'), dash = text.find('-');
  const bool mixed = dash != std::string_view::npos;
  const std::string_view whole = mixed ? text.substr(0, dash) : "0";
  const std::size_t begin = mixed ? dash + 1 : 0;
  if (begin > slash) return std::nullopt;
  const std::string_view over = text.substr(begin, slash - begin), under = text.substr(slash + 1);
  if (!all_digits(whole) || !all_digits(over) || !all_digits(under)) return std::nullopt;
  const auto a = read_unsigned(whole), b = read_unsigned(over), c = read_unsigned(under);
  if (!a || !b || !c || *c == 0) return std::nullopt;
  return *a + *b / *c;
}

/// Takes the text up to the separator off the front; nothing where there is no separator.
std::optional<std::string_view> take_until(std::string_view& text, char separator) {
  const std::size_t at = text.find(separator);
  if (at == std::string_view::npos) return std::nullopt;
  const std::string_view front = text.substr(0, at);
  text.remove_prefix(at + 1);
  return front;
}

/// "x,y[,z]", or "distance<angle".
std::optional<Point> read_offset(std::string_view text) {
  if (auto distance_text = take_until(text, '<')) {
    const auto distance = read_real(*distance_text), angle = read_angle(text);
    if (!distance || !angle) return std::nullopt;
    return Point{*distance * std::cos(*angle), *distance * std::sin(*angle), 0};
  }
  std::array<double, 3> coordinates{};
  std::size_t count = 0;
  for (bool last = false; !last; ++count) {
    const auto front = take_until(text, ',');
    last = !front;
    const auto coordinate = read_real(front.value_or(text));
    if (!coordinate || count == coordinates.size()) return std::nullopt;
    coordinates[count] = *coordinate;
  }
  if (count < 2) return std::nullopt;
  return Point{coordinates[0], coordinates[1], coordinates[2]};
}

}  // namespace

std::string_view trimmed(std::string_view text) {
  constexpr std::string_view blanks = " \t\r\n";
  const std::size_t begin = text.find_first_not_of(blanks);
  if (begin == std::string_view::npos) return {};
  return text.substr(begin, text.find_last_not_of(blanks) - begin + 1);
}

bool same_word(std::string_view a, std::string_view b) {
  return std::ranges::equal(a, b, {}, lower, lower);
}

double normal_angle(double radians) {
  constexpr double turn = 2 * std::numbers::pi;
  double angle = std::fmod(radians, turn);
  if (angle < 0) angle += turn;
  return angle < turn ? angle : 0;
}

std::optional<double> read_real(std::string_view text) {
  text = trimmed(text);
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) text.remove_prefix(1);
  const bool fraction = text.find('/') != std::string_view::npos;
  const std::optional<double> number = fraction ? read_fraction(text) : read_unsigned(text);
  if (!number) return std::nullopt;
  return negative ? 0 - *number : *number;
}

std::optional<std::int16_t> read_integer(std::string_view text) {
  text = trimmed(text);
  const std::string_view digits = text.substr(text.starts_with('-') || text.starts_with('+'));
  if (digits.empty() || !all_digits(digits)) return std::nullopt;
  using Limits = std::numeric_limits<std::int16_t>;
  const auto number = read_real(text);
  if (!number || *number < Limits::min() || *number > Limits::max()) return std::nullopt;
  return static_cast<std::int16_t>(*number);
}

std::optional<double> read_angle(std::string_view text) {
  text = trimmed(text);
  double unit = std::numbers::pi / 180;
  if (!text.empty()) {
    const char last = lower(text.back());
    if (last == 'r') unit = 1;
    if (last == 'g') unit = std::numbers::pi / 200;
    if (last == 'r' || last == 'g') text.remove_suffix(1);
  }
  const auto number = read_real(text);
  if (!number) return std::nullopt;
  return normal_angle(*number * unit);
}

std::optional<Point> read_point(std::string_view text, Point from) {
  text = trimmed(text);
  if (!text.starts_with('@')) return read_offset(text);
  text.remove_prefix(1);
  if (text.empty()) return from;
  const auto offset = read_offset(text);
  if (!offset) return std::nullopt;
  return from + *offset;
}

std::optional<std::pair<Point, Point>> read_corners(std::string_view text) {
  text = trimmed(text);
  const auto first_text = take_until(text, ' ');
  if (!first_text) return std::nullopt;
  const auto first = read_point(*first_text, {});
  if (!first || first_text->starts_with('@')) return std::nullopt;
  const auto second = read_point(text, *first);
  if (!second) return std::nullopt;
  return std::pair{*first, *second};
}

std::optional<drawing::Handle> read_handle(std::string_view text) {
  text = trimmed(text);
  if (text.starts_with('#')) {
    text.remove_prefix(1);
  } else {
    constexpr std::string_view call = "(handent";
    if (!same_word(text.substr(0, call.size()), call) || !text.ends_with(')')) return std::nullopt;
    text = trimmed(text.substr(call.size(), text.size() - call.size() - 1));
    if (text.size() < 2 || !text.starts_with('"') || !text.ends_with('"')) return std::nullopt;
    text = text.substr(1, text.size() - 2);
  }
  const drawing::Handle handle = drawing::parse_handle(text);
  if (handle == 0) return std::nullopt;
  return handle;
}

}  // namespace velmar::embedded
