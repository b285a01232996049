#include <gmock/gmock.h>

#include <cmath>

#include "basic/conversion.h"
#include "scenes/scene.h"

namespace velmar {
namespace {

using basic::Doubles;
using basic::Value;
using embedded::head;
using host::Point;
using testing::ElementsAre;
using testing::IsEmpty;

std::string line(const char* handle, const char* from_to, const char* layer = "0") {
  return head("LINE", handle, layer) + "100 AcDbLine\n" + from_to;
}

/// A closed polyline of two half circles about a centre.
std::string donut(const char* handle, double x, double y) {
  const auto vertex = [&](double at) {
    return "10 " + std::to_string(at) + "\n20 " + std::to_string(y) + "\n42 1\n";
  };
  return head("LWPOLYLINE", handle) + "100 AcDbPolyline\n90 2\n70 1\n43 0.5\n" + vertex(x - 1) +
         vertex(x + 1);
}

Point middle(const host::Box& box) {
  return {(box.min.x + box.max.x) / 2, (box.min.y + box.max.y) / 2, 0};
}

TEST(AlignDonut, PutsTheCentresOnTheHeightOfTheLinesStart) {
  Scene scene(line("30", "10 10\n20 50\n30 0\n11 90\n21 70\n31 0\n") + donut("31", 5, 48) +
              donut("32", 20, 50) + donut("33", 40, 53.5));
  const auto centre = [&](const char* handle) {
    return middle(scene.entity<host::LightweightPolyline>(handle).GetBoundingBox());
  };
  scene.answers({"#30", "#31", "#32", "#33", ""});
  EXPECT_FALSE(scene.run("AlignDonut").failure);
  EXPECT_EQ(scene.asked().front(), "Select Line");
  EXPECT_NEAR(centre("31").x, 5, 1e-9);
  for (const char* handle : {"31", "32", "33"}) EXPECT_NEAR(centre(handle).y, 50, 1e-9);
  EXPECT_EQ(scene.document().SelectionSets().Count(), 0);

  // A pick that is no line: y 0.
  scene.answers({"#32", "#33", ""}).run("AlignDonut");
  EXPECT_NEAR(centre("33").y, 0, 1e-9);

  // A set left over: nothing is moved, and the next run works.
  scene.document().SelectionSets().Add("TEST_SSET12");
  scene.answers({"#30", "#33", ""}).run("AlignDonut");
  EXPECT_NEAR(centre("33").y, 0, 1e-9);
  EXPECT_EQ(scene.document().SelectionSets().Count(), 0);

  scene.answers({"^C"});
  EXPECT_FALSE(scene.run("AlignDonut").failure);
  EXPECT_THAT(scene.said(), IsEmpty());
}

TEST(OMove, MovesAlongXOrByHeightAndSide) {
  Scene scene(head("CIRCLE", "30") + "100 AcDbCircle\n10 1\n20 2\n30 3\n40 1\n");
  const auto centre = [&] { return scene.entity<host::Circle>("30").Center(); };
  scene.run("OMove", "30", 5.0);
  EXPECT_EQ(centre(), (Point{6, 2, 3}));
  scene.run("OMove", "30", 5.0, true, 2.0, -2.5);
  EXPECT_EQ(centre(), (Point{8, 7, 0.5}));
  EXPECT_FALSE(scene.run("OMove", "FFFF", 5.0).failure);
}

TEST(Sc, ScalesAboutAPointAndReportsWhatTheHostRefuses) {
  Scene scene(head("CIRCLE", "30") + "100 AcDbCircle\n10 3\n20 4\n30 0\n40 1\n");
  EXPECT_FALSE(scene.run("Sc", "30", 2.0, 0.0, 0.0).failure);
  EXPECT_EQ(scene.entity<host::Circle>("30").Center(), (Point{6, 8, 0}));
  EXPECT_TRUE(scene.run("Sc", "30", 0.0, 0.0, 0.0).failure);
  EXPECT_EQ(scene.run("Sc", "FFFF", 2.0, 0.0, 0.0).failure->number, -2145386484);
  EXPECT_EQ(scene.run("Sc", "30", "two", 0.0, 0.0).failure->number, basic::type_mismatch);
}

TEST(Alignement, BringsEveryKnownKindToTheGround) {
  Scene scene(
      line("30", "10 0\n20 0\n30 5\n11 10\n21 0\n31 0\n") + head("TEXT", "31") +
      "100 AcDbText\n10 3\n20 4\n30 7\n40 5\n1 NOTE\n100 AcDbText\n" + head("CIRCLE", "32") +
      "100 AcDbCircle\n10 1\n20 2\n30 3\n40 1\n" + head("ELLIPSE", "33") +
      "100 AcDbEllipse\n10 1\n20 2\n30 -3\n11 4\n21 0\n31 0\n40 0.5\n41 0\n42 6.283185307179586\n" +
      head("LWPOLYLINE", "34") + "100 AcDbPolyline\n90 2\n70 0\n38 9\n10 0\n20 0\n10 5\n20 5\n" +
      head("INSERT", "35") + "100 AcDbBlockReference\n2 DOOR\n10 1\n20 1\n30 -2\n" +
      head("POINT", "36") + "100 AcDbPoint\n10 1\n20 1\n30 4\n");
  EXPECT_FALSE(scene.run("Alignement").failure);
  EXPECT_EQ(scene.entity<host::Line>("30").StartPoint(), (Point{0, 0, 0}));
  EXPECT_EQ(scene.entity<host::Text>("31").InsertionPoint(), (Point{3, 4, 0}));
  EXPECT_EQ(scene.entity<host::Circle>("32").Center(), (Point{1, 2, 0}));
  EXPECT_EQ(scene.entity<host::Ellipse>("33").Center(), (Point{1, 2, 0}));
  EXPECT_EQ(scene.entity<host::LightweightPolyline>("34").Elevation(), 0);
  EXPECT_EQ(scene.entity<host::BlockReference>("35").InsertionPoint(), (Point{1, 1, 0}));
  EXPECT_EQ(scene.drawing().changes().modified.size(), 6u);  // not the point
  EXPECT_THAT(scene.said(), IsEmpty());
}

TEST(Alignement, EndsAtTheFirstFailureAndKeepsWhatItDid) {
  Scene scene(line("30", "10 0\n20 0\n30 5\n11 10\n21 0\n31 0\n") +
              line("31", "10 0\n20 0\n30 5\n11 10\n21 0\n31 0\n", "Locked") +
              line("32", "10 0\n20 0\n30 5\n11 10\n21 0\n31 0\n"));
  EXPECT_EQ(scene.run("Alignement").failure->number, -2145386413);
  EXPECT_EQ(scene.entity<host::Line>("30").StartPoint().z, 0);
  EXPECT_EQ(scene.entity<host::Line>("32").StartPoint().z, 5);
}

TEST(ScaleXY, RewritesPolylinesAndRedrawsLinesAndTexts) {
  Scene scene(
      head("LWPOLYLINE", "30") + "100 AcDbPolyline\n90 2\n70 0\n10 1\n20 1\n42 0.5\n10 3\n20 1\n" +
      line("31", "39 2\n10 1\n20 1\n30 5\n11 3\n21 1\n31 0\n", "Walls") +
      head("TEXT", "32", "Walls") +
      "62 3\n100 AcDbText\n10 10\n20 80\n30 2\n40 5\n1 NOTE\n50 30\n41 0.7\n7 Notes\n72 1\n11 20\n"
      "21 80\n31 2\n100 AcDbText\n" +
      head("CIRCLE", "33") + "100 AcDbCircle\n10 3\n20 4\n30 0\n40 1\n");
  scene.answers({"2", ""});
  const Outcome outcome = scene.run("ScaleXY", 4.0, 3.0);
  EXPECT_EQ(outcome.arguments, (std::vector<Value>{1.0, 2.0}));
  EXPECT_THAT(scene.asked(),
              ElementsAre("\r\nEnter Scale X Factor <1>=", "\r\nEnter Scale Y Factor <1>="));
  EXPECT_THAT(scene.said(), ElementsAre("Autocad Ready."));

  const auto polyline = scene.entity<host::LightweightPolyline>("30");
  EXPECT_EQ(polyline.Coordinates(), (Doubles{2, 1, 6, 1}));
  EXPECT_EQ(basic::number(polyline.call(host::Member::GetBulge, std::int32_t{0})), 0.5);
  EXPECT_EQ(scene.entity<host::Circle>("33").Center(), (Point{3, 4, 0}));
  EXPECT_FALSE(scene.has("31"));
  EXPECT_FALSE(scene.has("32"));

  ASSERT_EQ(scene.drawing().changes().added.size(), 2u);
  const auto drawn = scene.document().ModelSpace();
  const auto new_line = host::as<host::Line>(drawn.Item(2));
  EXPECT_EQ(new_line.StartPoint(), (Point{2, 1, 0}));
  EXPECT_EQ(new_line.EndPoint(), (Point{6, 1, 0}));
  EXPECT_EQ(new_line.Layer(), "Walls");
  const auto text = host::as<host::Text>(drawn.Item(3));
  EXPECT_EQ(text.TextString(), "NOTE");
  EXPECT_EQ(text.Color(), 3);
  EXPECT_EQ(text.StyleName(), "Notes");
  EXPECT_NEAR(text.Rotation(), 30 * std::acos(-1.0) / 180, 1e-12);
  EXPECT_EQ(text.Height(), 5);
  EXPECT_EQ(text.ScaleFactor(), 1);
}

TEST(ScaleXY, FactorsThatCannotBeHadAreOne) {
  Scene scene(head("LWPOLYLINE", "30") + "100 AcDbPolyline\n90 2\n70 0\n10 1\n20 1\n10 3\n20 1\n");
  scene.answers({"^C", "0"});
  const Outcome outcome = scene.run("ScaleXY", 4.0, 3.0);
  EXPECT_FALSE(outcome.failure);
  EXPECT_EQ(outcome.arguments, (std::vector<Value>{1.0, 1.0}));
  EXPECT_EQ(scene.entity<host::LightweightPolyline>("30").Coordinates(), (Doubles{1, 1, 3, 1}));
}

}  // namespace
}  // namespace velmar
