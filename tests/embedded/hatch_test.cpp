#include <numbers>

#include "embedded/entity_scene.h"
#include "embedded/error_numbers.h"

namespace velmar::embedded {
namespace {

using std::numbers::pi;

using ObjectPointer = std::shared_ptr<host::Object>;

/// 30 a closed polyline of 20 by 10 with its corner at the origin, 31 a circle of radius 1 in it,
/// 32 an open polyline, 33 a line and 34 an arc that close a half disc of radius 2 at (40,0), 35 a
/// circle above the plane, 36 a text, 37 an ellipse.
std::string shapes() {
  return head("LWPOLYLINE", "30") +
         "100 AcDbPolyline\n90 4\n70 1\n10 0\n20 0\n10 20\n20 0\n10 20\n20 10\n10 0\n20 10\n" +
         head("CIRCLE", "31") + "100 AcDbCircle\n10 5\n20 5\n30 0\n40 1\n" +
         head("LWPOLYLINE", "32") +
         "100 AcDbPolyline\n90 3\n70 0\n10 0\n20 0\n10 20\n20 0\n10 20\n20 10\n" +
         head("LINE", "33") + "100 AcDbLine\n10 42\n20 0\n30 0\n11 38\n21 0\n31 0\n" +
         head("ARC", "34") +
         "100 AcDbCircle\n10 40\n20 0\n30 0\n40 2\n100 AcDbArc\n50 0\n51 180\n" +
         head("CIRCLE", "35") + "100 AcDbCircle\n10 5\n20 5\n30 7\n40 1\n" + head("TEXT", "36") +
         "100 AcDbText\n10 1\n20 1\n30 0\n40 2.5\n1 NOTE\n100 AcDbText\n" + head("ELLIPSE", "37") +
         "100 AcDbEllipse\n10 0\n20 0\n30 0\n11 4\n21 0\n31 0\n210 0\n220 0\n230 1\n40 0.5\n41 0\n"
         "42 6.283185307179586\n";
}

struct HatchScene : EntityScene {
  HatchScene() : EntityScene(shapes()) {}

  ObjectPointer hatch(std::int32_t type, const std::string& pattern, bool associative) const {
    return as_object(call_on(*model(), Member::AddHatch, type, pattern, associative));
  }
  Value list(std::initializer_list<std::string> handles) const {
    basic::List objects;
    for (const std::string& handle : handles) objects.emplace_back(object(handle));
    return objects;
  }
  std::string text(const ObjectPointer& of, Member member) const {
    return basic::convert<std::string>(of->get(member));
  }
  /// What was written of the entity.
  drawing::Hatch saved_hatch(const ObjectPointer& of) const {
    const EntityScene again = saved();
    const auto id = again.document->drawing.find(drawing::parse_handle(text(of, Member::Handle)));
    return std::get<drawing::Hatch>(again.document->drawing.read_body(id));
  }
};

double number(const ObjectPointer& of, Member member) {
  return basic::convert<double>(of->get(member));
}

TEST(Hatch, OfUserDefinedLinesIgnoresTheName) {
  const HatchScene scene;
  const auto hatch = scene.hatch(0, "ANSI31", false);
  hatch->put(Member::PatternSpace, 25.0);
  EntityScene::call_on(*hatch, Member::AppendOuterLoop, scene.list({"30"}));
  EntityScene::call_on(*hatch, Member::Evaluate);
  EXPECT_NEAR(number(hatch, Member::Area), 200, 1e-9);
  expect_value(hatch->get(Member::PatternSpace), 25.0, "space");
  expect_value(hatch->get(Member::PatternScale), 1.0, "scale");
  const drawing::Hatch saved = scene.saved_hatch(hatch);
  EXPECT_EQ(saved.pattern, "_USER");
  ASSERT_EQ(saved.lines.size(), 1U);
  EXPECT_EQ(saved.lines[0].offset, (Point{0, 25, 0}));
  hatch->put(Member::PatternDouble, true);
  hatch->put(Member::PatternAngle, pi / 2);
  EXPECT_EQ(scene.saved_hatch(hatch).lines[0].offset, (Point{-25, 0, 0}));
  EXPECT_EQ(scene.saved_hatch(hatch).lines[1].offset, (Point{0, -25, 0}));
  EXPECT_EQ(failure_of([&] { hatch->put(Member::PatternScale, 2.0); }), invalid_input);
}

TEST(Hatch, TakesOuterAndInnerLoopsOfAllSorts) {
  const HatchScene scene;
  const auto hatch = scene.hatch(1, "ansi37", false);
  const auto append = [&](Member member, std::initializer_list<std::string> handles) {
    EntityScene::call_on(*hatch, member, scene.list(handles));
  };
  append(Member::AppendOuterLoop, {"30"});
  append(Member::AppendInnerLoop, {"31"});
  EXPECT_NEAR(number(hatch, Member::Area), 200 - pi, 1e-9);
  append(Member::AppendOuterLoop, {"33", "34"});
  EXPECT_NEAR(number(hatch, Member::Area), 200 + pi, 1e-9);
  EntityScene::call_on(*hatch, Member::InsertLoopAt, 0, 1, scene.list({"37"}));
  EXPECT_TRUE(hatch->get(Member::NumberOfLoops) == Value(4));
  EXPECT_EQ(scene.text(hatch, Member::PatternName), "ANSI37");
  hatch->put(Member::HatchStyle, 2);
  std::vector<Value> box(2);
  hatch->call(Member::GetBoundingBox, box);
  expect_value(box[0], at(-4, -2), "lower corner");
  expect_value(box[1], at(42, 10), "upper corner");
  EntityScene::call_on(*hatch, Member::Move, at(0, 0), at(1, 2));
  EntityScene::call_on(*hatch, Member::ScaleEntity, at(0, 0), 2.0);
  hatch->call(Member::GetBoundingBox, box);
  expect_value(box[1], at(86, 24), "after moving and scaling");
  expect_value(hatch->get(Member::PatternScale), 2.0, "scale");
  EXPECT_EQ(scene.saved_hatch(hatch).loops.size(), 4U);
}

TEST(Hatch, RefusesWhatMakesNoLoopInItsPlane) {
  const HatchScene scene;
  const auto hatch = scene.hatch(1, "ANSI31", true);
  const std::string before = scene.bytes();
  const auto append = [&](const Value& list) {
    return failure_of([&] { EntityScene::call_on(*hatch, Member::AppendOuterLoop, list); });
  };
  EXPECT_EQ(append(scene.list({"32"})), invalid_input) << "open";
  EXPECT_EQ(append(scene.list({"33"})), invalid_input) << "open";
  EXPECT_EQ(append(scene.list({"35"})), invalid_input) << "above the plane";
  EXPECT_EQ(append(scene.list({"36"})), invalid_input) << "no curve";
  EXPECT_EQ(append(scene.list({"30", "31"})), invalid_input) << "two loops";
  EXPECT_EQ(append(scene.list({})), invalid_input);
  EXPECT_EQ(append(Value(scene.object("30"))), bad_argument) << "no list";
  EXPECT_EQ(append(basic::List{Value(1)}), bad_argument);
  EXPECT_EQ(failure_of([&] { EntityScene::call_on(*hatch, Member::Evaluate); }), invalid_input);
  EXPECT_EQ(failure_of(
                [&] { EntityScene::call_on(*hatch, Member::AppendInnerLoop, scene.list({"31"})); }),
            invalid_input)
      << "no outer loop yet";
  EXPECT_EQ(failure_of([&] { EntityScene::call_on(*hatch, Member::SetPattern, 1, "NOWHERE"); }),
            invalid_input);
  EXPECT_EQ(failure_of([&] { EntityScene::call_on(*hatch, Member::Explode); }), unknown_member);
  EXPECT_EQ(scene.bytes(), before);
  EXPECT_EQ(failure_of([&] { scene.hatch(1, "NOWHERE", false); }), invalid_input);
  EXPECT_EQ(failure_of([&] { scene.hatch(3, "ANSI31", false); }), invalid_input);
  EXPECT_EQ(scene.bytes(), before) << "nothing was added";
}

TEST(Hatch, RefusesToEvaluateATooDensePattern) {
  const HatchScene scene;
  const auto hatch = scene.hatch(0, "", false);
  EntityScene::call_on(*hatch, Member::AppendOuterLoop, scene.list({"30"}));
  hatch->put(Member::PatternSpace, 1e-7);
  EXPECT_NE(failure_of([&] { EntityScene::call_on(*hatch, Member::Evaluate); }), 0);
}

TEST(Hatch, FollowsItsBoundaryOnlyWhereAssociative) {
  const HatchScene scene;
  const auto hatch = scene.hatch(1, "SOLID", true);
  EntityScene::call_on(*hatch, Member::AppendOuterLoop, scene.list({"33", "34"}));
  EXPECT_EQ(scene.saved_hatch(hatch).loops[0].sources, (std::vector<std::string>{"33", "34"}));
  const auto has_reactors = [&] {
    return scene.bytes().find("ACAD_REACTORS") != std::string::npos;
  };
  EXPECT_TRUE(has_reactors());
  std::vector<Value> loop{0, Value()};
  hatch->call(Member::GetLoopAt, loop);
  const auto* objects = loop[1].if_is<basic::List>();
  ASSERT_TRUE(objects && objects->size() == 2);
  EXPECT_EQ(scene.text(EntityScene::as_object((*objects)[1]), Member::Handle), "34");
  const auto copy = EntityScene::as_object(EntityScene::call_on(*hatch, Member::Copy));
  EXPECT_TRUE(copy->get(Member::AssociativeHatch) == Value(false));
  EXPECT_TRUE(scene.saved_hatch(copy).loops[0].sources.empty());
  hatch->put(Member::AssociativeHatch, false);
  EXPECT_FALSE(has_reactors());
  EXPECT_EQ(failure_of([&] { hatch->put(Member::AssociativeHatch, true); }), invalid_input);

  const auto other = scene.hatch(1, "SOLID", false);
  EntityScene::call_on(*other, Member::AppendOuterLoop, scene.list({"30"}));
  EXPECT_FALSE(has_reactors());
  EXPECT_TRUE(scene.saved_hatch(other).loops[0].sources.empty());
}

TEST(Hatch, FollowsNothingOnceAnEntityOfItsBoundaryIsErased) {
  const HatchScene scene;
  const auto hatch = scene.hatch(1, "SOLID", true);
  EntityScene::call_on(*hatch, Member::AppendOuterLoop, scene.list({"33", "34"}));
  const auto other = scene.hatch(1, "SOLID", true);
  EntityScene::call_on(*other, Member::AppendOuterLoop, scene.list({"30"}));
  const double area = basic::convert<double>(hatch->get(Member::Area));
  scene.call("33", Member::Delete);
  EXPECT_EQ(scene.saved_hatch(hatch).associative, 0);
  EXPECT_TRUE(scene.saved_hatch(hatch).loops[0].sources.empty());
  EXPECT_DOUBLE_EQ(drawing::area(scene.saved_hatch(hatch)), area) << "it stays where it was";
  EXPECT_EQ(scene.saved_hatch(other).loops[0].sources, std::vector<std::string>{"30"});
  EXPECT_TRUE(scene.saved().document->drawing.broken_references().empty());
}

TEST(Hatch, CanChangeItsPattern) {
  const HatchScene scene;
  const auto hatch = scene.hatch(1, "SOLID", false);
  EntityScene::call_on(*hatch, Member::AppendOuterLoop, scene.list({"30"}));
  EntityScene::call_on(*hatch, Member::SetPattern, 1, "NET");
  hatch->put(Member::PatternScale, 4.0);
  EXPECT_EQ(scene.saved_hatch(hatch).lines[0].offset, (Point{0, 0.5, 0})) << "in inches";
  hatch->put(Member::PatternAngle, pi / 2);
  const drawing::Hatch turned = scene.saved_hatch(hatch);
  EXPECT_NEAR(turned.lines[0].offset.x, -0.5, 1e-12);
  EXPECT_NEAR(turned.angle, pi / 2, 1e-12);
  EntityScene::call_on(*hatch, Member::SetPattern, 2, "solid");
  EXPECT_TRUE(scene.saved_hatch(hatch).lines.empty());
  EXPECT_EQ(failure_of([&] { hatch->put(Member::HatchObjectType, 1); }), no_such_action);
  hatch->put(Member::Elevation, 3.0);
  std::vector<Value> box(2);
  hatch->call(Member::GetBoundingBox, box);
  expect_value(box[0], at(0, 0, 3), "lower corner");
}

TEST(Hatch, CannotBeInR12) {
  std::string text = drawing_text("");
  text.replace(text.find("AC1015"), 6, "AC1009");
  const EntityScene scene(drawing::Drawing::read(text, "old.dxf"));
  EXPECT_EQ(
      failure_of([&] { EntityScene::call_on(*scene.model(), Member::AddHatch, 0, "", false); }),
      no_such_action);
}

}  // namespace
}  // namespace velmar::embedded
