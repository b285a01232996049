#include "embedded/command_line.h"

#include <charconv>
#include <cmath>
#include <numbers>

#include "basic/letter_case.h"
#include "basic/number_text.h"
#include "drawing/dimension/styles.h"
#include "embedded/additions.h"
#include "embedded/current.h"

namespace velmar::embedded {
namespace {

using drawing::Point;

constexpr std::string_view second_origin = "Specify second extension line origin: ";
constexpr std::string_view line_location =
    "Specify dimension line location or [Horizontal/Vertical]: ";

/// A number as the command line reads it: with a point, whatever the machine's separator is.
std::optional<double> number(std::string_view text) {
  if (text.starts_with('+')) text.remove_prefix(1);
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  const bool is_whole = error == std::errc() && end == text.data() + text.size();
  return is_whole && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

/// How far outside the range between the two it is.
double outside(double value, double one, double other) {
  return std::max({std::min(one, other) - value, value - std::max(one, other), 0.0});
}

}  // namespace

const CommandLine::Command CommandLine::commands[] = {
    {"DIMLINEAR", "Specify first extension line origin: ", &CommandLine::linear_dimension},
    {"IMPORT", "", &CommandLine::not_available},
};

void CommandLine::send(std::string_view text) {
  for (const char c : text) {
    if (c != ' ' && c != '\r' && c != '\n') {
      pending_ += c;
      continue;
    }
    const std::string word = std::move(pending_);
    pending_.clear();
    take(word);
  }
}

void CommandLine::take(const std::string& word) {
  if (!running_) {
    if (!word.empty()) begin(word);
  } else if (!(this->*running_->step)(word)) {
    running_ = nullptr;
  }
}

/// "_" before a name says that it is the English one, "." that it is not redefined.
void CommandLine::begin(const std::string& typed) {
  const std::size_t name_at = std::min(typed.find_first_not_of("_.'"), typed.size());
  const std::string name = basic::upper(typed.substr(name_at));
  for (const Command& command : commands) {
    if (command.name != name) continue;
    if (command.prompt.empty()) {
      (this->*command.step)(name);
      return;
    }
    running_ = &command;
    points_.clear();
    orientation_.clear();
    return say(command.prompt);
  }
  refuse("Unknown command \"" + basic::upper(typed) + "\".  Press F1 for help.");
}

bool CommandLine::refuse(std::string_view message) {
  say(message);
  return false;
}

bool CommandLine::not_available(const std::string& name) {
  return refuse(name + " is not available here.");
}

/// "x,y" or "x,y,z"; behind "@" from the point before.
std::optional<Point> CommandLine::point(const std::string& answer) const {
  const bool is_relative = answer.starts_with('@');
  std::vector<double> numbers;
  std::string_view rest = std::string_view(answer).substr(is_relative ? 1 : 0);
  for (;;) {
    const std::size_t comma = std::min(rest.find(','), rest.size());
    const auto read = number(rest.substr(0, comma));
    if (!read) return std::nullopt;
    numbers.push_back(*read);
    if (comma == rest.size()) break;
    rest.remove_prefix(comma + 1);
  }
  if (numbers.size() < 2 || numbers.size() > 3) return std::nullopt;
  const Point given{numbers[0], numbers[1], numbers.size() == 3 ? numbers[2] : 0};
  return is_relative ? document_->last_point + given : given;
}

bool CommandLine::linear_dimension(const std::string& answer) {
  const std::string keyword = basic::upper(answer);
  const bool is_keyword =
      keyword == "H" || keyword == "V" || keyword == "HORIZONTAL" || keyword == "VERTICAL";
  if (points_.size() == 2 && is_keyword) {
    orientation_ = keyword.substr(0, 1);
    say("Specify dimension line location: ");
    return true;
  }
  const auto given = point(answer);
  if (!given) return refuse("Point or option keyword required.");
  document_->last_point = *given;
  if (points_.size() == 2) {
    add_linear_dimension(*given);
    return false;
  }
  points_.push_back(*given);
  say(points_.size() == 1 ? second_origin : line_location);
  return true;
}

/// Without a keyword it is horizontal where the line is above or below the points rather than
/// beside them.
void CommandLine::add_linear_dimension(Point location) {
  const Point a = points_[0], b = points_[1];
  if (orientation_.empty()) {
    const bool is_beside = outside(location.x, a.x, b.x) > outside(location.y, a.y, b.y);
    orientation_ = is_beside ? "V" : "H";
  }
  drawing::Dimension dimension;
  dimension.flags = drawing::Dimension::rotated;
  dimension.first = a;
  dimension.second = b;
  dimension.definition = location;
  if (orientation_ == "V") dimension.rotation = std::numbers::pi / 2;
  const auto added = add_dimension(*document_, current_space(*document_), dimension);
  say("Dimension text = " + basic::general(measured(document_->drawing, added)));
}

}  // namespace velmar::embedded
