#pragma once

#include <compare>

#include "basic/value.h"

namespace velmar::basic {

/// Compares two variants. Numbers by size, true as -1; texts by their UTF-16 units, letter case
/// counting; a number is less than every text; Empty is 0 beside a number and "" beside a text.
/// `unordered` stands for Basic's Null, which no condition takes as true: test with <, <=, >, >=
/// and ==, never with !=. It is the outcome when a side is Null (or not a number at all). Failure
/// 438 for an object, 13 for lists, points and arguments left out.
std::partial_ordering compare(const Value& left, const Value& right);

}  // namespace velmar::basic
