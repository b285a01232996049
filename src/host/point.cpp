#include "host/point.h"

#include "basic/conversion.h"
#include "basic/failure.h"

namespace velmar::host {

basic::Value to_value(const Point& point) { return basic::Doubles{point.x, point.y, point.z}; }

Point to_point(const basic::Value& value) {
  const auto numbers = basic::convert<basic::Doubles>(value);
  if (numbers.size() != 3) throw basic::Failure(basic::type_mismatch);
  return {numbers[0], numbers[1], numbers[2]};
}

}  // namespace velmar::host
