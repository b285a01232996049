#include "drawing/dxf/row_reader.h"

#include <algorithm>
#include <limits>

namespace velmar::drawing::dxf {

void RowReader::stop(const std::string& expected) {
  if (problem_) return;
  const std::size_t at = std::min(at_, record_.tags().size());
  if (at > 0) problem_ = problem_at(record_, record_.tags()[at - 1], expected);
}

const Tag* RowReader::take(int code) {
  const Tag* tag = next();
  if (tag && tag->code == code && !tag->in_group) {
    ++at_;
    return tag;
  }
  if (!problem_ && tag) {
    problem_ = Problem{tag->begin, "expected group " + std::to_string(code) + ", found group " +
                                       std::to_string(tag->code)};
  } else {
    stop("group " + std::to_string(code) + " behind it");
  }
  return nullptr;
}

void RowReader::read(const Tag& tag, double& value) {
  const auto read = real_value(record_.bytes(), tag, record_.format());
  if (!read) return stop("a number");
  value = *read;
}

void RowReader::read(const Tag& tag, std::int32_t& value) {
  using Limits = std::numeric_limits<std::int32_t>;
  const auto read = integer_value(record_.bytes(), tag, record_.format());
  if (!read || *read < Limits::min() || *read > Limits::max()) return stop("a whole number");
  value = static_cast<std::int32_t>(*read);
}

void RowReader::read(const Tag& tag, std::string& value) {
  value = text_value(record_.bytes(), tag, record_.format());
}

void RowReader::read(const Tag& tag, Degrees& value) {
  double degrees = 0;
  read(tag, degrees);
  value.radians = degrees * radians_of_degree;
}

std::size_t RowReader::counted(int code) {
  std::int32_t count = 0;
  (*this)(code, count);
  const std::size_t left = last_ - at_;
  if (count >= 0 && static_cast<std::size_t>(count) <= left) return static_cast<std::size_t>(count);
  stop("a count of what follows");
  return 0;
}

bool RowReader::present(bool& is_there, int code, std::initializer_list<int> after) {
  const Tag* tag = next();
  const bool has_next = at_ + 1 < last_;
  is_there = tag && tag->code == code && has_next &&
             std::ranges::find(after, record_.tags()[at_ + 1].code) != after.end();
  return is_there;
}

}  // namespace velmar::drawing::dxf
