#include "basic/arithmetic.h"

#include <gtest/gtest.h>

#include "failing.h"

namespace velmar::basic {
namespace {

TEST(Arithmetic, FailsWhereBasicDoes) {
  EXPECT_EQ(divide(-7, 2), -3.5);
  EXPECT_EQ(failure_of([] { divide(1, -0.0); }), division_by_zero);
  EXPECT_EQ(failure_of([] { divide(0, 0); }), overflow);
  EXPECT_EQ(failure_of([] { divide(1e300, 1e-300); }), overflow);

  EXPECT_EQ(power(-3, 2), 9);
  EXPECT_EQ(power(-2, -1), -0.5);
  EXPECT_EQ(power(0, 0), 1);
  EXPECT_EQ(power(1e-200, 2), 0);
  EXPECT_EQ(failure_of([] { power(-2, 0.5); }), bad_argument);
  EXPECT_EQ(failure_of([] { power(0, -1); }), bad_argument);
  EXPECT_EQ(failure_of([] { power(1e200, 2); }), overflow);

  EXPECT_EQ(square_root(0), 0);
  EXPECT_EQ(failure_of([] { square_root(-1e-9); }), bad_argument);
}

}  // namespace
}  // namespace velmar::basic
