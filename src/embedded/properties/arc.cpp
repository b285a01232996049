#include <array>

#include "embedded/properties/kinds.h"

namespace velmar::embedded {
namespace {

using drawing::Arc;

constexpr std::array arc_rows{
    Property<Arc>{Member::ArcLength, [](const Arc& arc) -> Value { return length(arc); }},
    Property<Arc>{Member::TotalAngle, [](const Arc& arc) -> Value { return total_angle(arc); }},
    Property<Arc>{Member::Area, [](const Arc& arc) -> Value { return area(arc); }},
    Property<Arc>{Member::StartPoint,
                  [](const Arc& arc) -> Value { return to_value(start_point(arc)); }},
    Property<Arc>{Member::EndPoint,
                  [](const Arc& arc) -> Value { return to_value(end_point(arc)); }},
};

}  // namespace

std::span<const Property<Arc>> properties(const Arc&) { return arc_rows; }

}  // namespace velmar::embedded
