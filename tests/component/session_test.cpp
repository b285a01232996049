#include "component/session.h"

#include <gtest/gtest.h>

#include <thread>

#include "component/velmar16.h"
#include "fake_host.h"

namespace velmar {
namespace {

TEST(Session, MakesOneHostApplicationForEachThread) {
  FakeHost host;
  EXPECT_EQ(host.created, 0);
  utility().Prompt("one");
  utility().Prompt("two");
  EXPECT_EQ(host.created, 1);
  std::thread([] { utility().Prompt("three"); }).join();
  EXPECT_EQ(host.created, 2);
  release_host_application();
  utility().Prompt("four");
  EXPECT_EQ(host.created, 3);
}

TEST(Session, FailsWithoutAHostAndTriesAgainAtTheNextUse) {
  FakeHost host;
  const auto plain = host.decorate;
  host.decorate = [](Bag) { return nullptr; };
  EXPECT_THROW(application(), basic::Failure);
  host.decorate = plain;
  EXPECT_NO_THROW(application());
}

TEST(Session, GoesOnInTheDrawingThatIsActiveAtEachStep) {
  FakeHost host;
  FakeDocument other;
  host.document.add("AcDbLine", "A", {{Member::Length, 3.0}});
  const Bag picked = host.document.add("AcDbText", "A");
  other.add("AcDbLine", "A", {{Member::Length, 7.0}});
  picked->methods[Member::Update] = [&](std::span<Value>) {
    host.activate(other);
    return Value();
  };
  host.document.picks = {picked};

  Velmar16().GetTotalLength();
  EXPECT_TRUE(host.document.said.empty());
  ASSERT_EQ(other.said.size(), 1u);
  EXPECT_EQ(other.said[0], "\r\nTotal Length For Lines & Arcs On Layer: A Is: 7");
}

}  // namespace
}  // namespace velmar
