#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "component/velmar16.h"
#include "failure_of.h"
#include "fake_host.h"

namespace velmar {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Totals : public testing::Test {
 protected:
  Bag line(const char* layer, double length) {
    return host.document.add("AcDbLine", layer, {{Member::Length, length}});
  }
  Bag polyline(const char* layer, double area) {
    return host.document.add("AcDbPolyline", layer, {{Member::Area, area}});
  }
  /// The whole of what GetTotalLength writes for one line.
  std::string said_for(double length) {
    host.document.picks = {line("N", length)};
    Velmar16().GetTotalLength();
    host.document.entities.back()->properties[Member::Layer] = "done";
    return host.document.said.back().substr(std::string("\r\n").size());
  }

  FakeHost host;
};

TEST_F(Totals, LengthCountsLinesAndArcsOfThePickedLayerOnly) {
  line("Walls", 1200);
  host.document.add("AcDbArc", "Walls", {{Member::ArcLength, 34.5678}, {Member::Length, 9e9}});
  line("walls", 1000);
  polyline("Walls", 1000);
  host.document.picks = {host.document.add("AcDbCircle", "Walls")};
  Velmar16().GetTotalLength();
  EXPECT_THAT(host.document.asked, ElementsAre("\r\nSelect Layer"));
  EXPECT_THAT(host.document.said,
              ElementsAre("\r\nTotal Length For Lines & Arcs On Layer: Walls Is: 1234.568"));
}

TEST_F(Totals, AreaCountsLightweightPolylinesAndEllipsesOfThePickedLayerOnly) {
  polyline("A", 2.5);
  host.document.add("AcDbEllipse", "A", {{Member::Area, 0.25}});
  host.document.add("AcDb2dPolyline", "A", {{Member::Area, 100.0}});
  host.document.add("AcDbCircle", "A", {{Member::Area, 100.0}});
  polyline("a", 100);
  host.document.picks = {line("A", 5)};
  Velmar16().GetTotalArea();
  EXPECT_THAT(host.document.asked, ElementsAre("Select Layer"));
  EXPECT_THAT(host.document.said,
              ElementsAre("\r\nTotal Area For PolyLine & Ellipse On Layer: A Is: 2.75"));
}

TEST_F(Totals, AreRoundedHalfToEvenAndPrintedInTheUsersForm) {
  const std::pair<double, const char*> printed[] = {
      {2.0005, "2"}, {2.0015, "2.002"}, {0, "0"}, {1234.56789, "1234.568"}, {1000000, "1000000"}};
  for (const auto& [length, text] : printed) {
    EXPECT_EQ(said_for(length),
              std::string("Total Length For Lines & Arcs On Layer: N Is: ") + text);
  }

  struct CommaSystem : PlainSystem {
    basic::Separators separators() const override { return {.decimal = ',', .group = '.'}; }
  };
  host.document.picks = {line("comma", 1234.5)};
  Velmar16(std::make_shared<CommaSystem>()).GetTotalLength();
  EXPECT_TRUE(host.document.said.back().ends_with(" Is: 1234,5"));
}

TEST_F(Totals, ACancelledPickEndsTheLengthWithTheHostsErrorAndTheAreaSilently) {
  line("A", 5);
  const auto failure = failure_of([] { Velmar16().GetTotalLength(); });
  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->number, pick_failed);
  EXPECT_EQ(failure->source, "Host");
  EXPECT_EQ(failure_number([] { Velmar16().GetTotalArea(); }), 0);
  EXPECT_THAT(host.document.said, IsEmpty());
}

TEST_F(Totals, AnEntityThatCannotBeMeasuredLeavesNoPartialTotal) {
  host.document.picks = {polyline("A", 5), polyline("A", 6)};
  const Bag broken = host.document.add("AcDbPolyline", "A");  // has no area
  EXPECT_EQ(failure_number([] { Velmar16().GetTotalArea(); }), 0);
  EXPECT_THAT(host.document.said, IsEmpty());

  broken->properties.erase(Member::ObjectName);
  EXPECT_EQ(failure_number([] { Velmar16().GetTotalArea(); }), 0);
  EXPECT_THAT(host.document.said, IsEmpty());
}

}  // namespace
}  // namespace velmar
