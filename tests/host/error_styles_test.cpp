#include "host/error_styles.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace velmar::host {
namespace {

[[noreturn]] int fail(std::int32_t number) { throw basic::Failure(number, "Host", "refused"); }

TEST(Attempt, GivesTheResultOrNothing) {
  EXPECT_EQ(attempt([] { return std::string("picked"); }), "picked");
  EXPECT_FALSE(attempt([] { return fail(-1); }).has_value());
  EXPECT_TRUE(attempt([] {}));
  EXPECT_FALSE(attempt([] { fail(-1); }));
}

TEST(ResumeNext, SkipsAFailingStepAndKeepsItsVariable) {
  ResumeNext step;
  int value = 1;
  step([&] { value = fail(-7); });
  EXPECT_EQ(value, 1);
  step([&] { value = 2; });
  EXPECT_EQ(value, 2);
  ASSERT_TRUE(step.pending()) << "a successful step does not clear the failure before it";
  EXPECT_EQ(step.failure()->number, -7);
  step.clear();
  EXPECT_FALSE(step.pending());
}

TEST(ErrorStyles, SwallowNothingButFailures) {
  ResumeNext step;
  const auto bug = [] { throw std::logic_error("bug"); };
  EXPECT_THROW(step(bug), std::logic_error);
  EXPECT_THROW(attempt(bug), std::logic_error);
  EXPECT_THROW(NoTrap()([] { fail(-1); }), basic::Failure);
}

}  // namespace
}  // namespace velmar::host
