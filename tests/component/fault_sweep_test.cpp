#include <gtest/gtest.h>

#include "component/method_table.h"
#include "failure_of.h"
#include "fake_host.h"
#include "host/failing_object.h"

namespace velmar {
namespace {

/// A method and a call of it that succeeds on the scene below.
struct Case {
  const char* method;
  std::vector<Value> arguments;
};

const Case cases[] = {
    {"GetBRec", {"10", "PLW"}},
    {"Del", {"10"}},
    {"GetC", {"10"}},
    {"IDLast", {}},
    {"GetTotalLength", {}},
    {"GetTotalArea", {}},
    {"Angle2P", {0.0, 0.0, 3.0, 4.0}},
    {"DisP", {basic::Doubles{0, 0, 0}, basic::Doubles{3, 4, 0}}},
};

struct Scene {
  Scene() {
    host.document.add_boxed("AcDbPolyline", {}, {4, 2, 0})->properties[Member::Area] = 8.0;
    host.document.add("AcDbEllipse", "0", {{Member::Area, 0.5}});
    host.document.add("AcDbLine", "0", {{Member::Length, 8.0}});
    host.document.picks = {host.document.add("AcDbArc", "0", {{Member::ArcLength, 0.5}})};
  }
  FakeHost host;
};

/// Runs the case with its host failing at step n; false when the method takes fewer steps.
bool fails_as_its_row_says(const Case& tried, const Method& method, int n) {
  Scene scene;
  const auto fault =
      std::make_shared<host::Fault>(host::Fault{n, basic::Failure(-n, "Host", "injected")});
  scene.host.decorate = [&](Bag plain) { return host::failing(plain, fault); };
  Velmar16 velmar;
  std::vector<Value> arguments = tried.arguments;
  const auto failure = failure_of([&] { call(velmar, method, arguments); });

  const bool is_callers = fault->reached() && method.on_failure == OnFailure::reaches_caller;
  EXPECT_EQ(failure ? failure->number : 0, is_callers ? -n : 0);
  EXPECT_EQ(failure ? failure->description : "", is_callers ? "injected" : "");
  for (const std::string& said : scene.host.document.said) {
    EXPECT_TRUE(said.ends_with(" Is: 8.5") || said.ends_with(":  Is: 0")) << said;
  }
  return fault->reached();
}

TEST(FaultSweep, EveryFailureReachesTheCallerOrIsSwallowedAsTheMethodsRowSays) {
  for (const Case& tried : cases) {
    const Method& method = *find_method(tried.method);
    int n = 1;
    while (fails_as_its_row_says(tried, method, n)) {
      ASSERT_FALSE(HasFailure()) << tried.method << " with step " << n << " failing";
      ++n;
    }
    EXPECT_FALSE(HasFailure()) << tried.method << " without a failing step";
    EXPECT_GT(n, 4) << tried.method << " took too few steps for a sweep";
  }
}

}  // namespace
}  // namespace velmar
