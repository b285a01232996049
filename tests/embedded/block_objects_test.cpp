#include "embedded/blocks_object.h"
#include "embedded/entity_scene.h"
#include "embedded/error_numbers.h"

namespace velmar::embedded {
namespace {

std::vector<std::string> names(host::Object& collection, Member member) {
  std::vector<std::string> found;
  const auto walk = collection.enumerate();
  for (Value item; walk->next(item);) {
    found.push_back(basic::convert<std::string>(EntityScene::as_object(item)->get(member)));
  }
  return found;
}

TEST(BlockObjects, AreWalkedAsTheyWereLessWhatWasErased) {
  const EntityScene scene;
  const auto model = scene.model();
  std::vector<std::string> visited;
  const auto walk = model->enumerate();
  for (Value item; walk->next(item);) {
    const auto entity = EntityScene::as_object(item);
    visited.push_back(basic::convert<std::string>(entity->get(Member::Handle)));
    if (visited.size() == 1) scene.call("31", Member::Delete);
    EntityScene::call_on(*model, Member::AddLine, at(0, 0), at(1, 1));
    EntityScene::call_on(*entity, Member::Delete);
  }
  EXPECT_EQ(visited,
            (std::vector<std::string>{"30", "32", "33", "34", "35", "39", "3D", "3E", "41"}));
  EXPECT_TRUE(model->get(Member::Count) == Value(9)) << "the lines added";
  const auto last = EntityScene::as_object(EntityScene::call_on(*model, Member::Item, 8));
  EXPECT_TRUE(last->get(Member::ObjectName) == Value("AcDbLine"));
  EXPECT_EQ(failure_of([&] { EntityScene::call_on(*model, Member::Item, 9); }), -2145320939);
}

TEST(BlockObjects, AreFoundByName) {
  const EntityScene scene;
  BlocksObject blocks(scene.document);
  EXPECT_EQ(names(blocks, Member::Name), (std::vector<std::string>{"*Model_Space", "DOOR"}));
  const auto door = EntityScene::as_object(EntityScene::call_on(blocks, Member::Item, "door"));
  EXPECT_TRUE(door->get(Member::IsLayout) == Value(false));
  EXPECT_TRUE(door->get(Member::IsXRef) == Value(false));
  EXPECT_EQ(names(*door, Member::Handle), std::vector<std::string>{"23"});
  EXPECT_TRUE(scene.object("1E")->get(Member::Name) == Value("DOOR"));
  EXPECT_TRUE(door->get(Member::ObjectID) == scene.get("23", Member::OwnerID));
  EXPECT_EQ(failure_of([&] { EntityScene::call_on(blocks, Member::Item, "GATE"); }), -2145386476);
}

TEST(BlockObjects, TakeNewEntitiesOnTheCurrentLayer) {
  const EntityScene scene("");
  const auto model = scene.model();
  const auto add = [&](Member member, auto... arguments) {
    EntityScene::call_on(*model, member, arguments...);
  };
  add(Member::AddLine, at(0, 0), at(3, 4));
  add(Member::AddCircle, at(1, 1, 1), 2.0);
  add(Member::AddArc, at(0, 0), 1.0, 0.5, 2.0);
  add(Member::AddEllipse, at(0, 0), at(0, 3), 0.5);
  add(Member::AddText, "NOTE", at(1, 2, 3), 2.5);
  add(Member::AddLightWeightPolyline, basic::Doubles{0, 0, 4, 0, 4, 4});
  add(Member::AddPolyline, basic::Doubles{0, 0, 9, 4, 0, 9});
  add(Member::Add3DPoly, basic::Doubles{0, 0, 0, 1, 2, 2});

  const EntityScene saved = scene.saved();
  const auto read = saved.model();
  EXPECT_EQ(
      names(*read, Member::ObjectName),
      (std::vector<std::string>{"AcDbLine", "AcDbCircle", "AcDbArc", "AcDbEllipse", "AcDbText",
                                "AcDbPolyline", "AcDb2dPolyline", "AcDb3dPolyline"}));
  EXPECT_EQ(names(*read, Member::Layer), std::vector<std::string>(8, "Walls"));
  const auto item = [&](int i) {
    return EntityScene::as_object(EntityScene::call_on(*read, Member::Item, i));
  };
  expect_value(item(1)->get(Member::Center), at(1, 1, 1), "center");
  expect_value(item(2)->get(Member::EndAngle), 2.0, "end angle");
  expect_value(item(3)->get(Member::MajorAxis), at(0, 3), "major axis");
  expect_value(item(4)->get(Member::TextString), "NOTE", "text");
  expect_value(item(5)->get(Member::Area), 8.0, "area");
  expect_value(item(6)->get(Member::Coordinates), basic::Doubles{0, 0, 0, 4, 0, 0}, "heavy");
  expect_value(item(7)->get(Member::Length), 3.0, "length");
}

TEST(BlockObjects, RefuseEntitiesThatCannotBe) {
  const EntityScene scene("");
  const auto model = scene.model();
  const auto number = [&](Member member, auto... arguments) {
    return failure_of([&] { EntityScene::call_on(*model, member, arguments...); });
  };
  const std::string before = scene.bytes();
  EXPECT_EQ(number(Member::AddCircle, at(0, 0), 0.0), invalid_input);
  EXPECT_EQ(number(Member::AddCircle, basic::Doubles{0, 0}, 1.0), wrong_element_count);
  EXPECT_EQ(number(Member::AddArc, at(0, 0), -1.0, 0.0, 1.0), invalid_input);
  EXPECT_EQ(number(Member::AddEllipse, at(0, 0), at(0, 0), 0.5), invalid_input);
  EXPECT_EQ(number(Member::AddEllipse, at(0, 0), at(1, 0), 1.5), invalid_input);
  EXPECT_EQ(number(Member::AddText, "A", at(0, 0), 0.0), invalid_input);
  EXPECT_EQ(number(Member::AddLightWeightPolyline, basic::Doubles{0, 0}), wrong_element_count);
  EXPECT_EQ(number(Member::AddLightWeightPolyline, basic::Doubles{0, 0, 1}), wrong_element_count);
  EXPECT_EQ(number(Member::AddPolyline, basic::Doubles{0, 0, 1, 1}), wrong_element_count);
  EXPECT_EQ(scene.bytes(), before);
}

}  // namespace
}  // namespace velmar::embedded
