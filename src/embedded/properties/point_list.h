#pragma once

#include <span>
#include <vector>

#include "embedded/arguments.h"

namespace velmar::embedded {

/// Three numbers a point.
Value to_value(std::span<const drawing::Point> points);
/// The new value of a property that is such a list; as many points as `count`, otherwise the wrong
/// number of elements.
std::vector<drawing::Point> to_points(const Value& value, std::size_t count, Member member);

}  // namespace velmar::embedded
