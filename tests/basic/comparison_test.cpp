#include "basic/comparison.h"

#include <gtest/gtest.h>

#include <limits>

#include "failing.h"

namespace velmar::basic {
namespace {

TEST(Compare, FollowsTheRulesForVariants) {
  using Order = std::partial_ordering;
  const struct {
    Value left, right;
    Order expected;
  } rows[] = {
      {std::int16_t{3}, 7.0, Order::less},
      {true, std::int32_t{-1}, Order::equivalent},
      {true, false, Order::less},
      {"9", "10", Order::greater},  // as texts
      {"9", 10.0, Order::greater},  // a number is less than any text
      {10.0, "", Order::less},
      {true, "", Order::less},
      {"a", "B", Order::greater},  // letter case counts
      {"ab", "abc", Order::less},
      {"\U0001F600", "\uFFFD", Order::less},  // by units, not by characters
      {std::string("a\0b", 3), "a", Order::greater},
      {Empty{}, 0.0, Order::equivalent},
      {Empty{}, -1.0, Order::greater},
      {Empty{}, false, Order::equivalent},
      {"", Empty{}, Order::equivalent},
      {"a", Empty{}, Order::greater},
      {Empty{}, Empty{}, Order::equivalent},
      {Null{}, 1.0, Order::unordered},
      {"a", Null{}, Order::unordered},
      {Null{}, Null{}, Order::unordered},
      {std::numeric_limits<double>::quiet_NaN(), 1.0, Order::unordered},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(compare(row.left, row.right), row.expected) << &row - rows;
    EXPECT_EQ(compare(row.right, row.left), 0 <=> row.expected) << &row - rows;
  }
}

TEST(Compare, RefusesWhatHasNoValue) {
  EXPECT_EQ(failure_of([] { (void)compare(Reference(), 1.0); }), no_such_member);
  EXPECT_EQ(failure_of([] { (void)compare("a", Doubles{1, 2, 3}); }), type_mismatch);
  EXPECT_EQ(failure_of([] { (void)compare(LeftOut{}, 1.0); }), type_mismatch);
}

}  // namespace
}  // namespace velmar::basic
