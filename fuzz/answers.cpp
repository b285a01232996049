// What a user types in answer to a question.

#include "embedded/answers.h"

#include <cmath>
#include <numbers>

#include "target.h"

namespace {

using namespace velmar;
using fuzz::expect;

bool is_finite(drawing::Point point) {
  return std::isfinite(point.x) && std::isfinite(point.y) && std::isfinite(point.z);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text = fuzz::text_of(data, size);
  if (const auto real = embedded::read_real(text)) {
    expect(std::isfinite(*real), "a real is not finite");
  }
  embedded::read_integer(text);
  if (const auto angle = embedded::read_angle(text)) {
    expect(*angle >= 0 && *angle < 2 * std::numbers::pi, "an angle is out of range");
  }
  if (const auto point = embedded::read_point(text, {1, 2, 3})) {
    expect(is_finite(*point), "a point is not finite");
  }
  if (const auto corners = embedded::read_corners(text)) {
    expect(is_finite(corners->first) && is_finite(corners->second), "a corner is not finite");
  }
  embedded::read_handle(text);
  return 0;
}
