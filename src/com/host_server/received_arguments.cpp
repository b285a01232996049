#include "com/host_server/received_arguments.h"

#include <algorithm>

#include "basic/conversion.h"
#include "com/automation/failure_crossing.h"

namespace velmar::com {
namespace {

using basic::Value;
using host::Member;

/// Lists of numbers that are not coordinates: codes and what belongs to them.
bool holds_codes(Member method, std::size_t argument) {
  switch (method) {
    case Member::SetXData:
    case Member::SelectOnScreen:
      return true;
    case Member::SelectAtPoint:
      return argument > 0;
    case Member::SelectByPolygon:
      return argument > 1;
    case Member::Select:
      return argument > 2;
    default:
      return false;
  }
}

bool is_number(const Value& value) {
  return value.is<std::int16_t>() || value.is<std::int32_t>() || value.is<double>();
}

/// Scripts cannot make an array of doubles: their arrays of numbers are points and coordinates.
Value with_coordinates(Value value) {
  const auto* list = value.if_is<basic::List>();
  if (!list || list->empty() || !std::ranges::all_of(*list, is_number)) return value;
  return basic::convert<basic::Doubles>(value);
}

}  // namespace

template <class Step>
void ReceivedArguments::each(Step step) {
  for (UINT i = 0; i < parameters_.cArgs; ++i) {
    const UINT position = parameters_.cArgs - 1 - i;
    try {
      step(i, parameters_.rgvarg[position]);
    } catch (const basic::Failure& failure) {
      throw WrongArgument{argument_code(failure), position};
    }
  }
}

ReceivedArguments::ReceivedArguments(Member method, DISPPARAMS& parameters,
                                     const ObjectBorder& border)
    : parameters_(parameters), border_(border) {
  each([&](UINT i, const VARIANT& argument) {
    Value value = to_value(argument, border);
    values_.push_back(holds_codes(method, i) ? value : with_coordinates(std::move(value)));
  });
  received_ = values_;
}

void ReceivedArguments::write_back() {
  each([&](UINT i, VARIANT& argument) {
    // What the call left alone stays in the caller's own type.
    if (values_[i] != received_[i]) store(values_[i], argument, border_);
  });
}

}  // namespace velmar::com
