#include "embedded/properties/point_list.h"

#include "embedded/errors.h"

namespace velmar::embedded {

Value to_value(std::span<const drawing::Point> points) {
  basic::Doubles numbers;
  numbers.reserve(3 * points.size());
  for (const drawing::Point& point : points) {
    numbers.insert(numbers.end(), {point.x, point.y, point.z});
  }
  return numbers;
}

std::vector<drawing::Point> to_points(const Value& value, std::size_t count, Member member) {
  Value content = value;
  const Arguments arguments(member, {&content, 1}, 1, 1);
  const basic::Doubles& numbers = arguments.numbers(0, host::spelling(member));
  if (numbers.size() != 3 * count) throw failure(HostError::wrong_element_count);
  std::vector<drawing::Point> points(count);
  for (std::size_t i = 0; i < count; ++i) {
    points[i] = {numbers[3 * i], numbers[3 * i + 1], numbers[3 * i + 2]};
  }
  return points;
}

}  // namespace velmar::embedded
