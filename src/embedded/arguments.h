#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "basic/value.h"
#include "drawing/geometry/point.h"
#include "host/member.h"

namespace velmar::embedded {

using basic::Value;
using host::Member;

/// The arguments of one call, by position. A point must be an array of three doubles: anything else
/// is an invalid argument, another length the wrong number of elements. Numbers must be finite.
class Arguments {
 public:
  /// Fails with 449 or 450 unless there are from `required` to `at_most` arguments.
  Arguments(Member method, std::span<Value> values, std::size_t required, std::size_t at_most);

  std::size_t size() const { return values_.size(); }
  Member method() const { return method_; }
  const Value& operator[](std::size_t i) const { return values_[i]; }
  /// False where the argument was not given, though there is a place for it.
  bool has(std::size_t i) const;

  drawing::Point point(std::size_t i, std::string_view parameter) const;
  const basic::Doubles& numbers(std::size_t i, std::string_view parameter) const;
  double number(std::size_t i) const;
  std::int32_t integer(std::size_t i) const;
  /// An integer from 0 to below `count`; otherwise an invalid argument "Index".
  std::size_t index(std::size_t i, std::size_t count) const;
  std::string text(std::size_t i) const;
  /// Writes an out-argument.
  void give(std::size_t i, Value value) { values_[i] = std::move(value); }

 private:
  Member method_;
  std::span<Value> values_;
};

/// A property's new value as a point, with the same refusals.
drawing::Point to_point(const Value& value, std::string_view parameter, Member member);
/// A property's new value as a number that is finite; otherwise invalid input.
double to_number(const Value& value);
Value to_value(drawing::Point point);

}  // namespace velmar::embedded
