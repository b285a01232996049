#pragma once

#include <gtest/gtest.h>

#include <string>

namespace velmar {

/// Fails step 1, 2, ... of a call until it takes fewer steps than that; `fails_at(n)` runs it once
/// and says whether step n was reached. A call of fewer than `fewest` steps is no sweep.
template <class FailsAt>
void sweep(const std::string& method, int fewest, FailsAt fails_at) {
  int n = 1;
  while (fails_at(n)) {
    ASSERT_FALSE(testing::Test::HasFailure()) << method << " with step " << n << " failing";
    ++n;
  }
  EXPECT_FALSE(testing::Test::HasFailure()) << method << " without a failing step";
  EXPECT_GE(n - 1, fewest) << method << " took too few steps for a sweep";
}

}  // namespace velmar
