#pragma once

#include <gtest/gtest.h>

#include "drawing/geometry/box.h"

namespace velmar::drawing {

inline testing::AssertionResult near(Point a, Point b, double tolerance = 1e-9) {
  if (norm(a - b) <= tolerance) return testing::AssertionSuccess();
  return testing::AssertionFailure() << "(" << a.x << ", " << a.y << ", " << a.z << ") is not ("
                                     << b.x << ", " << b.y << ", " << b.z << ")";
}

inline testing::AssertionResult near(const Box& a, const Box& b, double tolerance = 1e-9) {
  const auto low = near(a.min, b.min, tolerance), high = near(a.max, b.max, tolerance);
  return low ? high : low;
}

}  // namespace velmar::drawing
