#include <numbers>

#include "embedded/entity_scene.h"
#include "embedded/error_numbers.h"

namespace velmar::embedded {
namespace {

using std::numbers::pi;

std::string light(const std::string& vertices, const std::string& flags = "0") {
  return head("LWPOLYLINE", "30") + "100 AcDbPolyline\n90 4\n70 " + flags + "\n38 2\n" + vertices;
}

const std::string square = "10 0\n20 0\n10 10\n20 0\n10 10\n20 10\n10 0\n20 10\n";

std::shared_ptr<host::Object> offset(const EntityScene& scene, double distance) {
  const Value list = scene.call("30", Member::Offset, distance);
  EXPECT_EQ(list.if_is<basic::List>()->size(), 1U);
  return EntityScene::as_object(list.if_is<basic::List>()->front());
}

TEST(Offset, OfAPolylineJoinsItsCorners) {
  struct Row {
    std::string vertices, flags;
    double distance;
    basic::Doubles expected;
  };
  const Row rows[] = {
      // Counter-clockwise, so the right side is outside.
      {square, "1", 2, {-2, -2, 12, -2, 12, 12, -2, 12}},
      {square, "1", -4, {4, 4, 6, 4, 6, 6, 4, 6}},
      // Clockwise.
      {"10 0\n20 0\n10 0\n20 10\n10 10\n20 10\n10 10\n20 0\n", "1", 1, {1, 1, 1, 9, 9, 9, 9, 1}},
      {square, "0", 1, {0, -1, 11, -1, 11, 11, 0, 11}},
      // A small cut corner has no room inside: its neighbours meet.
      {"10 0\n20 0\n10 9\n20 0\n10 10\n20 1\n10 10\n20 10\n10 0\n20 10\n",
       "1",
       -3,
       {3, 3, 7, 3, 7, 7, 3, 7}},
      // A vertex given twice makes no corner.
      {"10 0\n20 0\n10 5\n20 0\n10 5\n20 0\n10 5\n20 5\n", "0", -1, {0, 1, 4, 1, 4, 5}},
      // There and back: a straight piece joins what never meets.
      {"10 0\n20 0\n10 5\n20 0\n10 2\n20 0\n", "0", 1, {0, -1, 5, -1, 5, 1, 2, 1}},
  };
  for (const Row& row : rows) {
    const EntityScene scene(light(row.vertices, row.flags));
    const auto made = offset(scene, row.distance);
    expect_value(made->get(Member::Coordinates), row.expected, row.vertices);
    expect_value(made->get(Member::Elevation), 2.0, "elevation");
    EXPECT_TRUE(made->get(Member::Closed) == Value(row.flags == "1"));
  }
}

TEST(Offset, OfArcsKeepsTheirCentres) {
  // A slot of two lines and two half circles.
  const EntityScene slot(
      light("10 0\n20 0\n10 10\n20 0\n42 1\n10 10\n20 4\n10 0\n20 4\n42 1\n", "1"));
  expect_value(offset(slot, 1)->get(Member::Length), 20 + 2 * pi * 3, "outside");
  expect_value(offset(slot, -1)->get(Member::Area), 20 + pi, "inside");
  EXPECT_EQ(failure_of([&] { offset(slot, -2.5); }), invalid_input);

  // A quarter circle between lines: inside its centre the lines meet.
  const EntityScene rounded(
      light("10 0\n20 0\n10 8\n20 0\n42 0.41421356237309503\n10 10\n20 2\n10 10\n20 10\n"));
  expect_value(offset(rounded, -3)->get(Member::Coordinates), basic::Doubles{0, 3, 7, 3, 7, 10},
               "no room for the arc");
  expect_value(offset(rounded, -1)->get(Member::Length), 8 + 8 + pi / 2, "smaller arc");

  // A half circle of radius 5 on a line that goes on: outside both go on to where they meet.
  const EntityScene bump(light("10 0\n20 0\n10 10\n20 0\n42 -1\n10 20\n20 0\n10 30\n20 0\n"));
  const auto above = offset(bump, -1);
  const double meeting = 15 - std::sqrt(36.0 - 1);
  expect_value(above->get(Member::Coordinates),
               basic::Doubles{0, 1, meeting, 1, 30 - meeting, 1, 30, 1}, "cut off");
  const Value bulge = EntityScene::call_on(*above, Member::GetBulge, 1);
  expect_value(bulge, -std::tan((pi - 2 * std::asin(1.0 / 6)) / 4), "bulge");
}

TEST(Offset, OfATiltedOldPolylineIsAnOldPolylineInItsPlane) {
  const std::string layer = "100 AcDbEntity\n8 0\n100 AcDbVertex\n100 AcDb2dVertex\n";
  const EntityScene scene(head("POLYLINE", "30", "Walls") +
                          "66 1\n100 AcDb2dPolyline\n10 0\n20 0\n30 7\n70 4\n40 0.5\n41 0.5\n"
                          "75 6\n210 0\n220 0\n230 -1\n" +
                          "0 VERTEX\n5 31\n330 30\n" + layer + "10 3\n20 3\n30 7\n70 16\n" +
                          "0 VERTEX\n5 32\n330 30\n" + layer + "10 0\n20 0\n30 7\n70 8\n" +
                          "0 VERTEX\n5 33\n330 30\n" + layer + "10 6\n20 0\n30 7\n70 8\n" +
                          "0 VERTEX\n5 34\n330 30\n" + layer + "10 6\n20 6\n30 7\n70 8\n" +
                          "0 SEQEND\n5 35\n330 30\n100 AcDbEntity\n8 0\n");
  const auto made = offset(scene, 1);
  const auto handle = basic::convert<std::string>(made->get(Member::Handle));
  const EntityScene saved = scene.saved();
  EXPECT_TRUE(saved.get(handle, Member::ObjectName) == Value("AcDb2dPolyline"));
  EXPECT_TRUE(saved.get(handle, Member::Layer) == Value("Walls"));
  EXPECT_TRUE(saved.get(handle, Member::Type) == Value(0));
  expect_value(saved.get(handle, Member::Coordinates), basic::Doubles{0, -1, 7, 7, -1, 7, 7, 6, 7},
               "the drawn curve");
  std::vector<Value> widths{0, 0.0, 0.0};
  saved.object(handle)->call(Member::GetWidth, widths);
  expect_value(widths[1], 0.5, "width");
}

TEST(Offset, WithoutRoomChangesNothing) {
  const EntityScene scene(light(square, "1"));
  const std::string before = scene.bytes();
  for (const double distance : {-5.0, -6.0, -100.0, 0.0}) {
    EXPECT_EQ(failure_of([&] { offset(scene, distance); }), invalid_input) << distance;
  }
  const EntityScene dot(light("10 1\n20 1\n10 1\n20 1\n"));
  EXPECT_EQ(failure_of([&] { offset(dot, 1); }), invalid_input);
  const EntityScene others;
  EXPECT_EQ(failure_of([&] { others.call("33", Member::Offset, 1.0); }), no_such_action);
  EXPECT_EQ(failure_of([&] { others.call("39", Member::Offset, 1.0); }), no_such_action);
  EXPECT_EQ(scene.bytes(), before);
}

}  // namespace
}  // namespace velmar::embedded
