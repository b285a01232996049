#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "component/method.h"
#include "host/failing_object.h"
#include "scenes/caller.h"

namespace velmar {

/// The step of a host that is to fail, counted from 1.
class FailingStep {
 public:
  explicit FailingStep(int n)
      : fault_(std::make_shared<host::Fault>(
            host::Fault{n, basic::Failure(-n, "Host", "injected " + std::to_string(n))})) {}

  std::shared_ptr<host::Object> operator()(std::shared_ptr<host::Object> host) const {
    return host::failing(std::move(host), fault_);
  }
  bool was_reached() const { return fault_->reached(); }

  /// That very failure came out of a method whose failures reach the caller, and none otherwise.
  void expect_as_its_row_says(const Method& method, const Outcome& outcome) const {
    const bool is_callers = was_reached() && method.on_failure == OnFailure::reaches_caller;
    const basic::Failure none(0, "", ""), &expected = is_callers ? fault_->failure : none;
    const basic::Failure& found = outcome.failure ? *outcome.failure : none;
    EXPECT_EQ(found.number, expected.number);
    EXPECT_EQ(found.source, expected.source);
    EXPECT_EQ(found.description, expected.description);
  }

 private:
  std::shared_ptr<host::Fault> fault_;
};

/// Fails step 1, 2, ... of a call until it takes fewer steps than that; `is_reached(n)` runs it
/// once and says whether step n was reached. A call of fewer than three steps is no sweep.
template <class IsReached>
void sweep(const std::string& method, IsReached is_reached) {
  int n = 1;
  while (is_reached(n)) {
    ASSERT_FALSE(testing::Test::HasFailure()) << method << " with step " << n << " failing";
    ++n;
  }
  EXPECT_FALSE(testing::Test::HasFailure()) << method << " without a failing step";
  EXPECT_GT(n, 3) << method << " took too few steps for a sweep";
}

}  // namespace velmar
