#include <gtest/gtest.h>

#include "component/velmar16.h"
#include "failure_of.h"
#include "fake_host.h"
#include "host/entities.h"

namespace velmar {
namespace {

using basic::Doubles;

class HandleServices : public testing::Test {
 protected:
  void box_of(const Bag& entity, std::string code) {
    Value handle = handle_of(entity);
    velmar.GetBRec(handle, code);
  }

  FakeHost host;
  Velmar16 velmar;
};

TEST_F(HandleServices, GetBRecTakesEachKindByBothSpellingsOfItsCode) {
  const std::pair<const char*, const char*> kinds[] = {{"L", "AcDbLine"},
                                                       {"c", "AcDbCircle"},
                                                       {"A", "AcDbArc"},
                                                       {"pl", "AcDb2dPolyline"},
                                                       {"plw", "AcDbPolyline"},
                                                       {"2P", "AcDb2dPolyline"},
                                                       {"3p", "AcDb3dPolyline"},
                                                       {"T", "AcDbText"},
                                                       {"e", "AcDbEllipse"},
                                                       {"BR", "AcDbBlockReference"},
                                                       {"h", "AcDbHatch"},
                                                       {"D", "AcDbRotatedDimension"},
                                                       {"d", "AcDbAlignedDimension"}};
  double x = 0;
  for (const auto& [code, class_name] : kinds) {
    SCOPED_TRACE(code);
    box_of(host.document.add_boxed(class_name, {x, 1, 2}, {x + 5, 6, 7}), code);
    EXPECT_EQ(velmar.BoxMinPoint, Value(Doubles{x, 1, 2}));
    EXPECT_EQ(velmar.BoxMaxPoint, Value(Doubles{x + 5, 6, 7}));
    ++x;
  }
}

TEST_F(HandleServices, GetBRecReachesTheLightweightPolylineOnlyByPLW) {
  const Bag polyline = host.document.add_boxed("AcDbPolyline", {}, {1, 1, 0});
  for (const char* code : {"PL", "pl", "2P", "L", "A"}) {
    EXPECT_EQ(failure_number([&] { box_of(polyline, code); }), basic::type_mismatch) << code;
  }
  EXPECT_EQ(failure_number([&] { box_of(polyline, "PLW"); }), 0);
}

TEST_F(HandleServices, GetBRecLeavesTheBoxAloneForAnythingThatIsNoCode) {
  box_of(host.document.add_boxed("AcDbLine", {1, 1, 1}, {2, 2, 2}), "L");
  Value unknown = "FFF";
  for (std::string code : {"Pl", "", "LL", "AcDbLine"}) {
    velmar.GetBRec(unknown, code);  // does not even look the handle up
    EXPECT_EQ(velmar.BoxMinPoint, Value(Doubles{1, 1, 1})) << code;
  }
}

TEST_F(HandleServices, GetBRecEmptiesTheBoxBeforeTheHostFillsItExceptForAnArc) {
  box_of(host.document.add_boxed("AcDbLine", {1, 1, 1}, {2, 2, 2}), "L");
  const auto refuses = [](std::span<Value>) -> Value { throw basic::Failure(-1, "Host", "No"); };
  const Bag arc = host.document.add("AcDbArc", "0"), text = host.document.add("AcDbText", "0");
  arc->methods[Member::GetBoundingBox] = text->methods[Member::GetBoundingBox] = refuses;

  EXPECT_EQ(failure_number([&] { box_of(arc, "A"); }), -1);
  EXPECT_EQ(velmar.BoxMinPoint, Value(Doubles{1, 1, 1}));
  EXPECT_EQ(failure_number([&] { box_of(text, "T"); }), -1);
  EXPECT_EQ(velmar.BoxMinPoint, Value());
  EXPECT_EQ(velmar.BoxMaxPoint, Value());
}

TEST_F(HandleServices, HandlesAreUsedInTheirTextForm) {
  host.document.next_handle = 0x215;
  const Bag line = host.document.add_boxed("AcDbLine", {3, 0, 0}, {4, 0, 0});
  Value handle = 215.0;
  std::string code = "l";
  velmar.GetBRec(handle, code);
  EXPECT_EQ(velmar.BoxMinPoint, Value(Doubles{3, 0, 0}));
  velmar.Del(handle);
  EXPECT_FALSE(host.document.has(line));
  EXPECT_EQ(handle, Value(215.0));
}

TEST_F(HandleServices, DelOfAnUnknownHandleIsTheHostsError) {
  const Bag line = host.document.add("AcDbLine", "0");
  Value handle = "FFF";
  EXPECT_EQ(failure_number([&] { velmar.Del(handle); }), unknown_handle);
  EXPECT_TRUE(host.document.has(line));
}

TEST_F(HandleServices, GetCMeasuresTheWidthAndKeepsTheCentre) {
  std::string donut =
      handle_of(host.document.add_boxed("AcDbPolyline", {-1.5, 10, 4}, {2.2, 20, 6}));
  EXPECT_EQ(velmar.GetC(donut), 6);
  EXPECT_DOUBLE_EQ(velmar.CentrePoint.x, 0.35);
  EXPECT_DOUBLE_EQ(velmar.CentrePoint.y, 15);
  EXPECT_EQ(velmar.CentrePoint.z, 0);

  std::string circle = handle_of(host.document.add_boxed("AcDbCircle", {}, {1, 1, 0}));
  EXPECT_EQ(failure_number([&] { velmar.GetC(circle); }), basic::type_mismatch);
  EXPECT_DOUBLE_EQ(velmar.CentrePoint.y, 15);
}

TEST_F(HandleServices, IDLastReadsTheNewestHandleAsADecimalNumber) {
  EXPECT_EQ(velmar.IDLast(), 0) << "an empty drawing";
  host.document.next_handle = 0x1A4;
  host.document.add("AcDbLine", "0");
  host.document.next_handle = 0x215;
  host.document.add("AcDbLine", "0");
  EXPECT_EQ(velmar.IDLast(), 215);
  EXPECT_TRUE(host.document.selection_sets.empty());
}

TEST_F(HandleServices, IDLastLeavesItsSetBehindWhenTheHandleHasLettersAndThenCannotStart) {
  host.document.next_handle = 0x1A5;
  const Bag line = host.document.add("AcDbLine", "0");
  EXPECT_EQ(failure_number([&] { velmar.IDLast(); }), basic::type_mismatch);
  EXPECT_TRUE(host.document.selection_sets.contains("TEST_SSET7"));
  EXPECT_EQ(failure_number([&] { velmar.IDLast(); }), set_exists);
  EXPECT_TRUE(host.document.has(line));
}

}  // namespace
}  // namespace velmar
