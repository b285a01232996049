#include "embedded/arguments.h"

#include <cmath>

#include "basic/conversion.h"
#include "embedded/errors.h"

namespace velmar::embedded {

Arguments::Arguments(Member method, std::span<Value> values, std::size_t required,
                     std::size_t at_most)
    : method_(method), values_(values) {
  if (values.size() > at_most) throw basic::Failure(basic::wrong_argument_count);
  for (std::size_t i = 0; i < required; ++i) {
    if (!has(i)) throw basic::Failure(basic::argument_not_optional);
  }
}

bool Arguments::has(std::size_t i) const {
  return i < values_.size() && !values_[i].is<basic::LeftOut>();
}

drawing::Point Arguments::point(std::size_t i, std::string_view parameter) const {
  return to_point(values_[i], parameter, method_);
}

const basic::Doubles& Arguments::numbers(std::size_t i, std::string_view parameter) const {
  const auto* numbers = values_[i].if_is<basic::Doubles>();
  if (!numbers) throw invalid_argument(parameter, method_);
  for (const double number : *numbers) {
    if (!std::isfinite(number)) throw failure(HostError::invalid_input);
  }
  return *numbers;
}

double Arguments::number(std::size_t i) const { return to_number(values_[i]); }

std::int32_t Arguments::integer(std::size_t i) const {
  return basic::convert<std::int32_t>(values_[i]);
}

std::size_t Arguments::index(std::size_t i, std::size_t count) const {
  const std::int32_t index = integer(i);
  if (index < 0 || static_cast<std::size_t>(index) >= count) {
    throw invalid_argument("Index", method_);
  }
  return static_cast<std::size_t>(index);
}

std::string Arguments::text(std::size_t i) const { return basic::convert<std::string>(values_[i]); }

drawing::Point to_point(const Value& value, std::string_view parameter, Member member) {
  const auto* numbers = value.if_is<basic::Doubles>();
  if (!numbers) throw invalid_argument(parameter, member);
  if (numbers->size() != 3) throw failure(HostError::wrong_element_count);
  for (const double number : *numbers) {
    if (!std::isfinite(number)) throw failure(HostError::invalid_input);
  }
  return {(*numbers)[0], (*numbers)[1], (*numbers)[2]};
}

double to_number(const Value& value) {
  const double number = basic::convert<double>(value);
  if (!std::isfinite(number)) throw failure(HostError::invalid_input);
  return number;
}

Value to_value(drawing::Point point) { return basic::Doubles{point.x, point.y, point.z}; }

}  // namespace velmar::embedded
