#include <array>
#include <cmath>

#include "embedded/properties/kinds.h"

namespace velmar::embedded {
namespace {

using drawing::OleFrame;

void put_insertion_point(OleFrame& frame, const Value& value) {
  const drawing::Point to = to_point(value, "InsertionPoint", Member::InsertionPoint);
  transform(frame, drawing::translation(to - place(frame).upper_left));
}

constexpr std::array ole_frame_rows{
    Property<OleFrame>{Member::InsertionPoint,
                       [](const OleFrame& frame) { return to_value(place(frame).upper_left); },
                       put_insertion_point},
    Property<OleFrame>{Member::Width,
                       [](const OleFrame& frame) -> Value {
                         const auto [upper_left, lower_right] = place(frame);
                         return std::abs(lower_right.x - upper_left.x);
                       }},
    Property<OleFrame>{Member::Height,
                       [](const OleFrame& frame) -> Value {
                         const auto [upper_left, lower_right] = place(frame);
                         return std::abs(upper_left.y - lower_right.y);
                       }},
};

}  // namespace

std::span<const Property<OleFrame>> properties(const OleFrame&) { return ole_frame_rows; }

}  // namespace velmar::embedded
