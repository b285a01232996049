#include <numbers>

#include "embedded/entity_scene.h"

namespace velmar::embedded {
namespace {

std::pair<Value, Value> xdata(const EntityScene& scene, const std::string& handle,
                              const std::string& application) {
  std::vector<Value> arguments{application, {}, {}};
  scene.object(handle)->call(Member::GetXData, arguments);
  return {arguments[1], arguments[2]};
}

basic::List codes(std::initializer_list<std::int16_t> numbers) {
  return {numbers.begin(), numbers.end()};
}

TEST(EntityData, OfApplicationsIsKeptApart) {
  const EntityScene scene;
  EXPECT_TRUE(xdata(scene, "30", "MINE").first == Value());
  const basic::List types = codes({1001, 1000, 1010, 1040, 1070, 1071, 1005});
  const basic::List values{"MINE",
                           "text with blanks",
                           at(1, 2, 3),
                           0.1,
                           std::int16_t{-7},
                           70000,
                           scene.get("31", Member::Handle)};
  scene.call("30", Member::SetXData, types, values);
  scene.call("30", Member::SetXData, codes({1001, 1070}), basic::List{"OTHER", std::int16_t{1}});
  scene.call("30", Member::SetXData, codes({1001, 1070}), basic::List{"OTHER", std::int16_t{2}});

  const EntityScene saved = scene.saved();
  const auto [read_types, read_values] = xdata(saved, "30", "mine");
  EXPECT_TRUE(read_types == Value(types));
  EXPECT_TRUE(read_values == Value(values));
  EXPECT_TRUE(xdata(saved, "30", "OTHER").second == Value(basic::List{"OTHER", std::int16_t{2}}));
  EXPECT_EQ(xdata(saved, "30", "").first.if_is<basic::List>()->size(), 9U);

  const std::string before = saved.bytes();
  const auto refused = [&](basic::List bad_types, basic::List bad_values) {
    EXPECT_NE(failure_of([&] { saved.call("30", Member::SetXData, bad_types, bad_values); }), 0);
    EXPECT_EQ(saved.bytes(), before);
  };
  refused(codes({1000}), {"no application first"});
  refused(codes({1001, 1000}), {"A"});
  refused(codes({1001, 40}), {"A", 1.0});
  refused(codes({1001, 1070}), {"A", 40000});
}

TEST(EntityData, BoxesAreTheOutArguments) {
  const EntityScene scene;
  const auto box = [&](const std::string& handle) {
    std::vector<Value> corners(2);
    scene.object(handle)->call(Member::GetBoundingBox, corners);
    return corners;
  };
  expect_value(box("31")[0], at(0, 0), "arc low");
  expect_value(box("31")[1], at(2, 2), "arc high");
  expect_value(box("34")[1], at(5, 2), "the bulge counts");
  EXPECT_EQ(failure_of([&] { box("41"); }), 445);
  scene.put("3D", Member::TextString, "   ");
  EXPECT_EQ(failure_of([&] { box("3D"); }), -2145386468);
}

/// Where entities 30 and 31 cross.
basic::Doubles crossings(const std::string& entities, std::int32_t extend = 0) {
  const EntityScene scene(entities);
  const Value found = scene.call("30", Member::IntersectWith, scene.object("31"), extend);
  return *found.if_is<basic::Doubles>();
}

std::string line(const std::string& handle, const std::string& points) {
  return head("LINE", handle) + "100 AcDbLine\n" + points;
}

TEST(EntityData, CrossingsOfCurves) {
  const std::string across = line("30", "10 -9\n20 1\n30 0\n11 9\n21 1\n31 0\n");
  const std::string circle = head("CIRCLE", "31") + "100 AcDbCircle\n10 0\n20 0\n30 0\n40 2\n";
  const double root = std::sqrt(3);
  expect_value(crossings(across + circle), basic::Doubles{-root, 1, 0, root, 1, 0}, "circle");

  const std::string touching = line("30", "10 -9\n20 2\n30 0\n11 9\n21 2\n31 0\n");
  expect_value(crossings(touching + circle), at(0, 2), "touching line");

  const std::string high = line("30", "10 1\n20 1\n30 5\n11 1\n21 1\n31 -5\n");
  EXPECT_TRUE(crossings(high + circle).empty());

  const std::string tilted =
      head("CIRCLE", "30") + "100 AcDbCircle\n10 0\n20 0\n30 0\n40 2\n210 1\n220 0\n230 0\n";
  const basic::Doubles both = crossings(tilted + circle);
  ASSERT_EQ(both.size(), 6U);
  EXPECT_NEAR(std::abs(both[1]), 2, 1e-9);

  const std::string door =
      head("LWPOLYLINE", "31") + "100 AcDbPolyline\n90 2\n70 0\n10 0\n20 0\n42 1\n10 0\n20 4\n";
  expect_value(crossings(across + door), basic::Doubles{root, 1, 0}, "bulge to the right");

  const std::string ellipse = head("ELLIPSE", "30") +
                              "100 AcDbEllipse\n10 0\n20 0\n30 0\n11 4\n21 0\n31 0\n40 0.25\n"
                              "41 0\n42 6.283185307179586\n";
  const basic::Doubles four = crossings(ellipse + circle);
  ASSERT_EQ(four.size(), 12U);
  for (std::size_t i = 0; i < four.size(); i += 3) {
    EXPECT_NEAR(std::hypot(four[i], four[i + 1]), 2, 1e-9);
    EXPECT_NEAR(std::hypot(four[i] / 4, four[i + 1]), 1, 1e-9);
  }
}

TEST(EntityData, CrossingsBeyondTheEnds) {
  const std::string lines = line("30", "10 0\n20 0\n30 0\n11 1\n21 0\n31 0\n") +
                            line("31", "10 5\n20 -1\n30 0\n11 5\n21 1\n31 0\n");
  EXPECT_TRUE(crossings(lines, 0).empty());
  expect_value(crossings(lines, 1), at(5, 0), "this one extended");
  EXPECT_TRUE(crossings(lines, 2).empty());

  const std::string arc = line("30", "10 -9\n20 -1\n30 0\n11 9\n21 -1\n31 0\n") +
                          head("ARC", "31") +
                          "100 AcDbCircle\n10 0\n20 0\n30 0\n40 1\n100 AcDbArc\n50 0\n51 180\n";
  EXPECT_TRUE(crossings(arc, 1).empty());
  expect_value(crossings(arc, 2), at(0, -1), "the other one extended");
}

}  // namespace
}  // namespace velmar::embedded
