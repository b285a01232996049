#include <array>
#include <cmath>
#include <numbers>

#include "embedded/errors.h"
#include "embedded/properties/kinds.h"

namespace velmar::embedded {
namespace {

using drawing::Circle;

double positive(const Value& value) {
  const double number = to_number(value);
  if (!(number > 0)) throw failure(HostError::invalid_input);
  return number;
}

constexpr std::array circle_rows{
    Property<Circle>{
        Member::Diameter, [](const Circle& circle) -> Value { return 2 * circle.radius; },
        [](Circle& circle, const Value& value) { circle.radius = positive(value) / 2; }},
    Property<Circle>{Member::Circumference,
                     [](const Circle& circle) -> Value { return length(circle); },
                     [](Circle& circle, const Value& value) {
                       circle.radius = positive(value) / (2 * std::numbers::pi);
                     }},
    Property<Circle>{Member::Area, [](const Circle& circle) -> Value { return area(circle); },
                     [](Circle& circle, const Value& value) {
                       circle.radius = std::sqrt(positive(value) / std::numbers::pi);
                     }},
};

}  // namespace

std::span<const Property<Circle>> properties(const Circle&) { return circle_rows; }

}  // namespace velmar::embedded
