#include <numbers>

#include "drawing/extents.h"
#include "drawing/geometry/matrix.h"
#include "embedded/entity_scene.h"

namespace velmar::embedded {
namespace {

using drawing::Matrix;
using std::numbers::pi;

/// Entities whose object coordinate system is not the world's.
std::string tilted() {
  const std::string normal = "210 0\n220 0.6\n230 0.8\n";
  return head("ARC", "30") + "100 AcDbCircle\n10 1\n20 2\n30 3\n40 2\n" + normal +
         "100 AcDbArc\n50 30\n51 150\n" +  //
         head("LWPOLYLINE", "31") +
         "100 AcDbPolyline\n90 3\n70 0\n38 2\n10 0\n20 0\n42 0.5\n10 4\n20 0\n10 4\n20 2\n" +
         normal +  //
         head("ELLIPSE", "32") + "100 AcDbEllipse\n10 1\n20 1\n30 1\n11 0\n21 -4\n31 3\n" + normal +
         "40 0.5\n41 0.5\n42 2\n" +  //
         head("CIRCLE", "33") + "100 AcDbCircle\n10 1\n20 0\n30 0\n40 1\n210 0\n220 0\n230 -1\n" +
         head("INSERT", "34") +
         "100 AcDbBlockReference\n2 DOOR\n10 1\n20 2\n30 3\n41 2\n42 2\n43 2\n50 20\n" + normal +
         head("LINE", "35") + "100 AcDbLine\n10 1\n20 2\n30 3\n11 4\n21 5\n31 6\n";
}

/// Points that tell where an entity is drawn.
std::vector<Point> drawn(const EntityScene& scene, const std::string& handle) {
  std::vector<Point> points;
  const auto id = scene.document->drawing.find(drawing::parse_handle(handle));
  for (const auto& chain : outlines(scene.document->drawing, id)) {
    points.insert(points.end(), chain.begin(), chain.end());
  }
  return points;
}

double distance(Point p, const std::vector<Point>& way) {
  double least = norm(p - way.front());
  for (std::size_t i = 1; i < way.size(); ++i) {
    const Point along = way[i] - way[i - 1];
    const double size = dot(along, along);
    const double t = size > 0 ? std::clamp(dot(p - way[i - 1], along) / size, 0.0, 1.0) : 0;
    least = std::min(least, norm(p - (way[i - 1] + along * t)));
  }
  return least;
}

struct Movement {
  Member member;
  std::vector<Value> arguments;
  Matrix matrix;
  bool makes_another;
};

std::vector<Movement> movements() {
  const Point base{1, 1, 0}, axis{0.6, 0, 0.8};
  const Matrix turn = drawing::rotation(base, axis, 0.7);
  const Point origin = turn({});
  return {
      {Member::Move, {at(1, 1), at(2, 3, 4)}, drawing::translation({1, 2, 4}), false},
      {Member::Rotate, {at(1, 1), 0.5}, drawing::rotation(base, drawing::z_axis, 0.5), false},
      {Member::Rotate3D, {at(1, 1), at(1.6, 1, 0.8), 0.7}, turn, false},
      {Member::ScaleEntity, {at(1, 1), 2.5}, drawing::scaling(base, 2.5), false},
      {Member::Mirror, {at(1, 1), at(1, 5)}, drawing::reflection(base, drawing::x_axis), true},
      {Member::Mirror3D,
       {at(1, 1), at(5, 1), at(1, 5)},
       drawing::reflection(base, drawing::z_axis),
       true},
      {Member::TransformBy,
       {basic::Doubles{turn.x.x, turn.y.x, turn.z.x, origin.x,  //
                       turn.x.y, turn.y.y, turn.z.y, origin.y,  //
                       turn.x.z, turn.y.z, turn.z.z, origin.z,  //
                       0, 0, 0, 1}},
       turn,
       false},
  };
}

TEST(EntityMovement, MapsWhatIsDrawnAlsoOnTiltedNormals) {
  for (const Movement& movement : movements()) {
    for (const std::string handle : {"30", "31", "32", "33", "34", "35"}) {
      const EntityScene scene(tilted());
      const std::vector<Point> before = drawn(scene, handle);
      ASSERT_FALSE(before.empty()) << handle;
      auto arguments = movement.arguments;
      const Value result = scene.object(handle)->call(movement.member, arguments);
      std::string moved = handle;
      if (movement.makes_another) {
        const Value made = EntityScene::as_object(result)->get(Member::Handle);
        moved = basic::convert<std::string>(made);
        EXPECT_EQ(drawn(scene, handle), before);
      }
      const std::vector<Point> after = drawn(scene.saved(), moved);
      for (const Point p : before) {
        EXPECT_LT(distance(movement.matrix(p), after), 5e-3)
            << handle << " " << host::spelling(movement.member);
      }
    }
  }
}

TEST(EntityMovement, OfABlockReferenceTakesItsAttributesAlong) {
  const EntityScene scene;
  scene.call("3E", Member::Move, at(0, 0), at(5, 5));
  const EntityScene saved = scene.saved();
  expect_value(saved.get("3E", Member::InsertionPoint), at(15, 5), "insert");
  expect_value(saved.get("3F", Member::InsertionPoint), at(16, 5), "attribute");

  const auto copy = EntityScene::as_object(scene.call("3E", Member::Copy));
  const Value attributes = EntityScene::call_on(*copy, Member::GetAttributes);
  ASSERT_EQ(attributes.if_is<basic::List>()->size(), 1U);
  const auto attribute = EntityScene::as_object(attributes.if_is<basic::List>()->front());
  attribute->put(Member::TextString, "D9");
  EXPECT_TRUE(scene.get("3F", Member::TextString) == Value("D1"));
}

TEST(EntityMovement, ArraysLeaveTheOriginalAndAddTheRest) {
  const EntityScene scene(head("LINE", "30", "Locked") +
                          "100 AcDbLine\n10 1\n20 0\n30 0\n11 2\n21 0\n31 0\n");
  const auto starts = [](const Value& list) {
    std::vector<Point> points;
    for (const Value& item : *list.if_is<basic::List>()) {
      const Value start = EntityScene::as_object(item)->get(Member::StartPoint);
      const auto& numbers = *start.if_is<basic::Doubles>();
      points.push_back({numbers[0], numbers[1], numbers[2]});
    }
    return points;
  };
  const auto expect_points = [](const std::vector<Point>& found, std::vector<Point> expected) {
    ASSERT_EQ(found.size(), expected.size());
    for (std::size_t i = 0; i < found.size(); ++i) EXPECT_LT(norm(found[i] - expected[i]), 1e-9);
  };
  expect_points(starts(scene.call("30", Member::ArrayPolar, 4, 2 * pi, at(0, 0))),
                {{0, 1, 0}, {-1, 0, 0}, {0, -1, 0}});
  expect_points(starts(scene.call("30", Member::ArrayPolar, 3, pi, at(0, 0))),
                {{0, 1, 0}, {-1, 0, 0}});
  expect_points(
      starts(scene.call("30", Member::ArrayRectangular, 2, 2, 2, 10.0, 20.0, 30.0)),
      {{21, 0, 0}, {1, 10, 0}, {21, 10, 0}, {1, 0, 30}, {21, 0, 30}, {1, 10, 30}, {21, 10, 30}});
  EXPECT_TRUE(scene.model()->get(Member::Count) == Value(1 + 3 + 2 + 7));
}

TEST(EntityMovement, OffsetsGoOutward) {
  const EntityScene scene;
  const auto offset = [&](const std::string& handle, double by) {
    const Value list = scene.call(handle, Member::Offset, by);
    return EntityScene::as_object(list.if_is<basic::List>()->front());
  };
  expect_value(offset("32", 1)->get(Member::Radius), 4.0, "circle");
  expect_value(offset("31", -0.5)->get(Member::Radius), 1.5, "arc");
  expect_value(offset("30", 5)->get(Member::StartPoint), at(5, -1), "line, to its right");
  EXPECT_NE(failure_of([&] { offset("32", -3); }), 0);
}

}  // namespace
}  // namespace velmar::embedded
