#pragma once

#include <cstdint>
#include <string>

#include "basic/rounding.h"  // IWYU pragma: export (to_int16, to_int32)
#include "basic/separators.h"
#include "basic/value.h"

namespace velmar::basic {

// Values become what a parameter or a property needs, as Basic converts them. Always: Null is
// failure 94; lists, points and arguments left out are failure 13 (who allows leaving out puts the
// default in first).

/// Empty is 0, true is -1; a text is read strictly (strict_number.h); an object is failure 13.
double number(const Value& value, Separators separators = {});

/// Empty is ""; "True" or "False"; numbers in general form (number_text.h); an object is failure
/// 438.
std::string text(const Value& value, Separators separators = {});

/// Any number but 0 is true; so is the text "True", in any letter case. Other texts must be
/// numbers.
bool boolean(const Value& value, Separators separators = {});

/// For T = bool, std::int16_t, std::int32_t, double, std::string: as above. For Value: the value
/// itself. For Doubles: a point, or a list whose items are numbers. For Reference: an object, else
/// failure 424.
template <class T>
T convert(const Value& value, Separators separators = {});

template <>
bool convert<bool>(const Value& value, Separators separators);
template <>
std::int16_t convert<std::int16_t>(const Value& value, Separators separators);
template <>
std::int32_t convert<std::int32_t>(const Value& value, Separators separators);
template <>
double convert<double>(const Value& value, Separators separators);
template <>
std::string convert<std::string>(const Value& value, Separators separators);
template <>
Value convert<Value>(const Value& value, Separators separators);
template <>
Doubles convert<Doubles>(const Value& value, Separators separators);
template <>
Reference convert<Reference>(const Value& value, Separators separators);

}  // namespace velmar::basic
