#include "basic/conversion.h"

#include <variant>

#include "basic/failure.h"
#include "basic/number_text.h"
#include "basic/strict_number.h"
#include "basic/strings.h"

namespace velmar::basic {
namespace {

struct ToNumber {
  Separators separators;

  double operator()(Empty) const { return 0; }
  double operator()(Null) const { throw Failure(invalid_use_of_null); }
  double operator()(bool truth) const { return truth ? -1 : 0; }
  double operator()(std::int16_t whole) const { return whole; }
  double operator()(std::int32_t whole) const { return whole; }
  double operator()(double number) const { return number; }
  double operator()(const std::string& text) const { return strict_number(text, separators); }
  template <class Other>
  double operator()(const Other&) const {
    throw Failure(type_mismatch);
  }
};

struct ToText {
  Separators separators;

  std::string operator()(Empty) const { return {}; }
  std::string operator()(Null) const { throw Failure(invalid_use_of_null); }
  std::string operator()(bool truth) const { return truth ? "True" : "False"; }
  std::string operator()(std::int16_t whole) const { return general(whole); }
  std::string operator()(std::int32_t whole) const { return general(whole); }
  std::string operator()(double number) const { return general(number, separators); }
  std::string operator()(const std::string& text) const { return text; }
  std::string operator()(const Reference&) const { throw Failure(no_such_member); }
  template <class Other>
  std::string operator()(const Other&) const {
    throw Failure(type_mismatch);
  }
};

}  // namespace

double number(const Value& value, Separators separators) {
  return std::visit(ToNumber{separators}, value.content());
}

std::string text(const Value& value, Separators separators) {
  return std::visit(ToText{separators}, value.content());
}

bool boolean(const Value& value, Separators separators) {
  if (const auto* word = value.if_is<std::string>()) {
    if (equal_ignoring_case(*word, "True")) return true;
    if (equal_ignoring_case(*word, "False")) return false;
  }
  return number(value, separators) != 0;
}

template <>
bool convert<bool>(const Value& value, Separators separators) {
  return boolean(value, separators);
}

template <>
std::int16_t convert<std::int16_t>(const Value& value, Separators separators) {
  return to_int16(number(value, separators));
}

template <>
std::int32_t convert<std::int32_t>(const Value& value, Separators separators) {
  return to_int32(number(value, separators));
}

template <>
double convert<double>(const Value& value, Separators separators) {
  return number(value, separators);
}

template <>
std::string convert<std::string>(const Value& value, Separators separators) {
  return text(value, separators);
}

template <>
Value convert<Value>(const Value& value, Separators) {
  return value;
}

template <>
Doubles convert<Doubles>(const Value& value, Separators separators) {
  if (const auto* point = value.if_is<Doubles>()) return *point;
  const auto* items = value.if_is<List>();
  if (items == nullptr) throw Failure(type_mismatch);
  Doubles numbers;
  for (const Value& item : *items) numbers.push_back(number(item, separators));
  return numbers;
}

template <>
Reference convert<Reference>(const Value& value, Separators) {
  if (const auto* object = value.if_is<Reference>()) return *object;
  throw Failure(object_required);
}

}  // namespace velmar::basic
