#include "basic/rounding.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "failing.h"

namespace velmar::basic {
namespace {

TEST(Round, GoesHalfToEvenOnTheDecimalDigits) {
  const struct {
    double number;
    int decimals;
    double expected;
  } rows[] = {
      {2.5, 0, 2},
      {3.5, 0, 4},
      {-2.5, 0, -2},
      {-3.5, 0, -4},
      {0.5, 0, 0},
      {1.5, 0, 2},
      {12.5, 0, 12},
      {13.5, 0, 14},
      {0.49999999999999994, 0, 0},
      {0.6, 0, 1},
      {0.04, 0, 0},
      {-7.4, 0, -7},
      {9.5, 0, 10},
      {99.5, 0, 100},
      {2.5000000000000004, 0, 3},
      {4503599627370495.5, 0, 4503599627370496},
      {2.0005, 3, 2},
      {2.0015, 3, 2.002},
      {1234.56789, 3, 1234.568},
      {0.0005, 3, 0},
      {1.0005, 3, 1},
      {3.0005, 3, 3},
      {4.0005, 3, 4},
      {4.0015, 3, 4.002},
      {-2.0015, 3, -2.002},
      {2.00051, 3, 2.001},
      {1233.715, 2, 1233.72},
      {3.825, 2, 3.82},
      {9.9996, 3, 10},
      {0.00051, 3, 0.001},
      {0.00005, 3, 0},
      {1.5, 3, 1.5},
      {1.25, 400, 1.25},
      {5e-324, std::numeric_limits<int>::max(), 5e-324},
      {1e300, 3, 1e300},
      {9007199254740991, 0, 9007199254740991},
      {123456789012.3455, 3, 123456789012.346},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(round(row.number, row.decimals), row.expected)
        << row.number << " to " << row.decimals;
  }
  EXPECT_FALSE(std::signbit(round(-0.4)));
  EXPECT_TRUE(std::isinf(round(-std::numeric_limits<double>::infinity(), 3)));
  EXPECT_TRUE(std::isnan(round(std::numeric_limits<double>::quiet_NaN())));
  EXPECT_EQ(failure_of([] { round(1, -1); }), bad_argument);
}

TEST(Fix, GoesTowardZero) {
  EXPECT_EQ(fix(-1.4), -1);
  EXPECT_EQ(fix(1.9), 1);
  EXPECT_FALSE(std::signbit(fix(-0.4)));
}

TEST(ToInteger, GoesHalfToEvenAndOverflowsAfterRounding) {
  EXPECT_EQ(to_int16(16.2), 16);
  EXPECT_EQ(to_int16(32767.4), 32767);
  EXPECT_EQ(to_int16(-32768.5), -32768);
  EXPECT_EQ(to_int32(2147483646.5), 2147483646);
  for (const double outside : {32767.5, -32768.6, 9e99, double(NAN), double(INFINITY)}) {
    EXPECT_EQ(failure_of([&] { to_int16(outside); }), overflow) << outside;
  }
  EXPECT_EQ(failure_of([] { to_int32(2147483647.5); }), overflow);
}

TEST(Remainder, HasTheSignOfTheDividend) {
  const struct {
    double dividend, divisor, expected;
  } rows[] = {
      {7, 5, 2},   {-7, 5, -2}, {7, -5, 2},
      {5, 2.5, 1}, {7, 2.5, 1}, {10, 5, 0},
      {6.5, 4, 2}, {7.5, 5, 3}, {-2147483648.0, -1, 0},
  };
  for (const auto& row : rows) EXPECT_EQ(remainder(row.dividend, row.divisor), row.expected);
  for (const double divisor : {0.0, 0.4, -0.5, 0.5}) {
    EXPECT_EQ(failure_of([&] { remainder(7, divisor); }), division_by_zero) << divisor;
  }
  EXPECT_EQ(failure_of([] { remainder(3e9, 0); }), overflow);
  EXPECT_EQ(failure_of([] { remainder(7, 3e9); }), overflow);
}

TEST(Count, OverflowsAt32768) {
  Count count;
  for (int i = 0; i < 32767; ++i) ++count;
  EXPECT_EQ(count.value(), 32767);
  EXPECT_EQ(failure_of([&] { ++count; }), overflow);
  EXPECT_EQ(count.value(), 32767);
}

}  // namespace
}  // namespace velmar::basic
