#include <array>
#include <cmath>

#include "drawing/geometry/angle.h"
#include "embedded/properties/kinds.h"

namespace velmar::embedded {
namespace {

using drawing::Line;

constexpr std::array line_rows{
    Property<Line>{Member::Length, [](const Line& line) -> Value { return length(line); }},
    Property<Line>{Member::Delta,
                   [](const Line& line) -> Value { return to_value(line.end - line.start); }},
    Property<Line>{Member::Angle,
                   [](const Line& line) -> Value {
                     const drawing::Point delta = line.end - line.start;
                     return drawing::wrapped(std::atan2(delta.y, delta.x));
                   }},
};

}  // namespace

std::span<const Property<Line>> properties(const Line&) { return line_rows; }

}  // namespace velmar::embedded
