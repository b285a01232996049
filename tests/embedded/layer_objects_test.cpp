#include "embedded/entity_scene.h"
#include "embedded/error_numbers.h"
#include "embedded/layers_object.h"

namespace velmar::embedded {
namespace {

struct LayerScene : EntityScene {
  std::shared_ptr<LayersObject> layers = std::make_shared<LayersObject>(document);
  std::shared_ptr<host::Object> layer(const std::string& name) const {
    return as_object(call_on(*layers, Member::Item, name));
  }
};

TEST(LayerObjects, AreFoundByNameAndPosition) {
  const LayerScene scene;
  EXPECT_TRUE(scene.layers->get(Member::Count) == Value(3));
  EXPECT_TRUE(scene.layer("WALLS")->get(Member::Name) == Value("Walls"));
  const auto first = EntityScene::as_object(EntityScene::call_on(*scene.layers, Member::Item, 0));
  EXPECT_TRUE(first->get(Member::Name) == Value("0"));
  EXPECT_EQ(failure_of([&] { scene.layer("Nowhere"); }), key_not_found);
  EXPECT_EQ(failure_of([&] { EntityScene::call_on(*scene.layers, Member::Item, 3); }), -2145320939);
}

TEST(LayerObjects, ArePutAndSaved) {
  const LayerScene scene;
  const auto walls = scene.layer("Walls"), locked = scene.layer("Locked");
  walls->put(Member::Color, 5);
  walls->put(Member::LayerOn, false);
  walls->put(Member::Linetype, "dashed");
  walls->put(Member::Plottable, false);
  walls->put(Member::Lineweight, 50);
  locked->put(Member::Lock, false);
  locked->put(Member::Freeze, true);
  locked->put(Member::Color, 6);
  scene.put("30", Member::Layer, "Locked");
  locked->put(Member::Name, "Open");

  const EntityScene saved = scene.saved();
  const LayersObject layers(saved.document);
  const auto read = [&](const char* name) {
    return EntityScene::as_object(
        EntityScene::call_on(const_cast<LayersObject&>(layers), Member::Item, name));
  };
  EXPECT_TRUE(read("Walls")->get(Member::Color) == Value(5));
  EXPECT_TRUE(read("Walls")->get(Member::LayerOn) == Value(false));
  EXPECT_TRUE(read("Walls")->get(Member::Linetype) == Value("DASHED"));
  EXPECT_TRUE(read("Walls")->get(Member::Plottable) == Value(false));
  EXPECT_TRUE(read("Walls")->get(Member::Lineweight) == Value(50));
  EXPECT_TRUE(read("Open")->get(Member::Lock) == Value(false));
  EXPECT_TRUE(read("Open")->get(Member::Freeze) == Value(true));
  EXPECT_TRUE(read("Open")->get(Member::LayerOn) == Value(false)) << "a new colour keeps it off";
  EXPECT_TRUE(saved.get("30", Member::Layer) == Value("Open"));
}

TEST(LayerObjects, RefuseWhatTheHostRefuses) {
  const LayerScene scene;
  const auto zero = scene.layer("0"), walls = scene.layer("Walls"), locked = scene.layer("Locked");
  const std::string before = scene.bytes();
  EXPECT_EQ(failure_of([&] { walls->put(Member::Freeze, true); }), invalid_layer) << "current";
  EXPECT_EQ(failure_of([&] { walls->put(Member::Color, 0); }), invalid_input);
  EXPECT_EQ(failure_of([&] { walls->put(Member::Color, 256); }), invalid_input);
  EXPECT_EQ(failure_of([&] { walls->put(Member::Linetype, "ByLayer"); }), -2145386359);
  EXPECT_EQ(failure_of([&] { walls->put(Member::Lineweight, -1); }), invalid_input);
  EXPECT_EQ(failure_of([&] { walls->put(Member::Name, "LOCKED"); }), duplicate_name);
  EXPECT_EQ(failure_of([&] { walls->put(Member::Name, "a|b"); }), invalid_input);
  EXPECT_EQ(failure_of([&] { zero->put(Member::Name, "Zero"); }), invalid_input);
  EXPECT_EQ(failure_of([&] { EntityScene::call_on(*scene.layers, Member::Add, ""); }),
            invalid_input);
  for (const auto& layer : {zero, walls}) {
    EXPECT_EQ(failure_of([&] { EntityScene::call_on(*layer, Member::Delete); }), invalid_input);
  }
  EXPECT_EQ(scene.bytes(), before);

  walls->put(Member::Name, "WALLS");
  EXPECT_TRUE(walls->get(Member::Name) == Value("WALLS")) << "another case of its own name";
  scene.put("30", Member::Layer, "Locked");
  EXPECT_EQ(failure_of([&] { EntityScene::call_on(*locked, Member::Delete); }), invalid_input);
}

TEST(LayerObjects, AreAddedOnceAndDeleted) {
  const LayerScene scene;
  const auto added =
      EntityScene::as_object(EntityScene::call_on(*scene.layers, Member::Add, "Roof"));
  added->put(Member::Color, 2);
  const auto again =
      EntityScene::as_object(EntityScene::call_on(*scene.layers, Member::Add, "ROOF"));
  EXPECT_TRUE(again->get(Member::Name) == Value("Roof"));
  EXPECT_TRUE(again->get(Member::Color) == Value(2));
  EXPECT_TRUE(scene.layers->get(Member::Count) == Value(4));

  EntityScene::call_on(*again, Member::Delete);
  EXPECT_EQ(failure_of([&] { added->get(Member::Name); }), -2145386420);
  EXPECT_EQ(failure_of([&] { scene.layer("Roof"); }), key_not_found);
  EXPECT_EQ(failure_of([&] { scene.put("30", Member::Layer, "Roof"); }), key_not_found);
  EXPECT_TRUE(scene.layers->get(Member::Count) == Value(3));
  EXPECT_EQ(scene.bytes().find("Roof"), std::string::npos);

  const auto new_one =
      EntityScene::as_object(EntityScene::call_on(*scene.layers, Member::Add, "Roof"));
  EXPECT_TRUE(new_one->get(Member::Color) == Value(7)) << "not the deleted one";
  scene.put("30", Member::Layer, "Roof");
  EXPECT_TRUE(scene.saved().get("30", Member::Layer) == Value("Roof"));
}

}  // namespace
}  // namespace velmar::embedded
