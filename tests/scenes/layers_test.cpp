#include <gmock/gmock.h>

#include "basic/conversion.h"
#include "scenes/entity_lines.h"
#include "scenes/scene.h"

namespace velmar {
namespace {

using basic::LeftOut;
using basic::Value;
using host::Entity;
using testing::ElementsAre;
using testing::IsEmpty;

std::int32_t count(Scene& scene, std::string_view method, std::vector<const char*> arguments) {
  const Outcome outcome = arguments.size() == 1 ? scene.run(method, arguments[0])
                                                : scene.run(method, arguments[0], arguments[1]);
  return outcome.failure ? outcome.failure->number : *outcome.result.if_is<std::int16_t>();
}

std::string layers_of(const Scene& scene) {
  std::string names;
  for (const host::Layer& layer : scene.document().Layers()) names += layer.Name() + " ";
  return names;
}

TEST(Counts, ByLayerAndKind) {
  Scene scene(embedded::one_of_each() + line_lines("50", "Walls") + line_lines("51", "A-WALL") +
              lines({"52", "x", "Walls"}));
  struct Case {
    const char* method;
    std::vector<const char*> arguments;
    std::int32_t expected;
  };
  const Case cases[] = {
      {"GetNOLayer", {"Walls"}, 2},
      {"GetNOLayer", {"walls"}, 0},
      {"GetNOLayer", {""}, 0},
      {"GetNType", {"L"}, 3},
      {"GetNType", {"l"}, 3},
      {"GetNType", {"c"}, 1},
      {"GetNType", {"A"}, 1},
      {"GetNType", {"pl"}, 1},
      {"GetNType", {"Pl"}, 0},
      {"GetNType", {"PLW"}, 0},
      {"GetNType", {"2P"}, 1},
      {"GetNType", {"3p"}, 1},
      {"GetNType", {"T"}, 2},
      {"GetNType", {"e"}, 1},
      {"GetNType", {"BR"}, 1},
      {"GetNType", {"H"}, 0},
      {"GetNType", {"D"}, 0},
      {"GetNType", {""}, 0},
      {"GetNType", {"AcDbMline"}, 1},
      {"GetNType", {"acdbline"}, 0},
      {"GetNTypeLayer", {"L", "wall"}, 2},
      {"GetNTypeLayer", {"L", "WALLS"}, 1},
      {"GetNTypeLayer", {"T", ""}, 2},
      {"GetNTypeLayer", {"AcDbText", "door"}, 0},
  };
  for (const Case& tried : cases) {
    EXPECT_EQ(count(scene, tried.method, tried.arguments), tried.expected)
        << tried.method << " " << tried.arguments.front();
  }
}

TEST(Counts, Of32768EntitiesOverflow) {
  std::string points;
  for (int i = 0; i < 32'768; ++i) {
    points += "0 POINT\n5 " + drawing::handle_text(0x10000 + static_cast<unsigned>(i)) +
              "\n330 1F\n100 AcDbEntity\n8 Walls\n100 AcDbPoint\n10 0\n20 0\n30 0\n";
  }
  Scene scene(points);
  EXPECT_EQ(count(scene, "GetNOLayer", {"Walls"}), basic::overflow);
  EXPECT_EQ(count(scene, "GetNType", {"AcDbPoint"}), basic::overflow);
  EXPECT_EQ(count(scene, "GetNTypeLayer", {"AcDbPoint", "w"}), basic::overflow);
  scene.entity<Entity>("10000").Delete();
  EXPECT_EQ(count(scene, "GetNOLayer", {"Walls"}), 32'767);
}

TEST(Mo2Lr, MovesAnEntityOfTheKindAndColoursItByLayer) {
  struct Case {
    double handle;
    const char *layer, *kind, *kind_then, *layer_then;
  };
  const Case cases[] = {
      {30, "Walls", "L", "AcDbLine", "Walls"}, {30, "Walls", "l", "AcDbLine", "Walls"},
      {30, "Walls", "", "", "Walls"},          {30, "Walls", "AcDbLine", "AcDbLine", "Walls"},
      {30, "Walls", "C", "AcDbCircle", "0"},   {30, "Walls", "d", "AcDbDimAligned", "0"},
      {30, "Nowhere", "L", "AcDbLine", "0"},   {30, "", "L", "AcDbLine", "0"},
      {99, "Walls", "PLW", "PLW", "0"},        {30.5, "Walls", "Pl", "Pl", "0"},
      {32, "Walls", "L", "AcDbLine", "Walls"}, {32, "Walls", "D", "AcDbDimAligned", "Walls"},
      {31, "Walls", "", "", "Locked"},
  };
  for (const Case& tried : cases) {
    Scene scene(line_lines("30", "0", "62 3\n") + line_lines("31", "Locked", "62 3\n") +
                embedded::head("DIMENSION", "32") + "62 3\n100 AcDbDimension\n2 \n10 0\n20 0\n" +
                "30 0\n11 0\n21 0\n31 0\n70 32\n1 \n3 Standard\n100 AcDbAlignedDimension\n" +
                "13 0\n23 0\n33 0\n14 5\n24 0\n34 0\n50 0\n100 AcDbRotatedDimension\n");
    const Outcome outcome = scene.run("Mo2Lr", tried.handle, tried.layer, tried.kind);
    EXPECT_FALSE(outcome.failure);
    EXPECT_TRUE(outcome.result.is<basic::Empty>());
    EXPECT_EQ(outcome.arguments[2], Value(tried.kind_then));
    const std::string handle = basic::text(Value(std::int32_t(tried.handle)));
    if (!scene.has(handle)) continue;
    const auto entity = scene.entity<Entity>(handle);
    EXPECT_EQ(entity.Layer(), tried.layer_then) << tried.handle << tried.layer << tried.kind;
    EXPECT_EQ(entity.Color(), entity.Layer() == "Walls" ? 256 : 3);
  }
}

TEST(MLayer, MakesALayerThatIsNotThere) {
  struct Case {
    const char* name;
    Value colour;
    const char* layers;
    std::int32_t colour_then;
  };
  const Case cases[] = {
      {"New", std::int32_t{5}, "0 Walls Locked New ", 5},
      {"New", std::int32_t{255}, "0 Walls Locked New ", 255},
      {"New", std::int32_t{256}, "0 Walls Locked New ", 7},
      {"New", LeftOut{}, "0 Walls Locked New ", 7},
      {"Walls", std::int32_t{5}, "0 Walls Locked ", 1},
      {"Locked", std::int32_t{5}, "0 Walls Locked ", 3},
      {"0", std::int32_t{5}, "0 Walls Locked ", 5},  // the first layer is not compared
  };
  for (const Case& tried : cases) {
    Scene scene{std::string()};
    EXPECT_FALSE(scene.run("MLayer", tried.name, tried.colour).failure);
    EXPECT_EQ(layers_of(scene), tried.layers);
    EXPECT_EQ(scene.document().Layers().Item(tried.name).Color(), tried.colour_then) << tried.name;
    EXPECT_FALSE(scene.run("MLayer", "", std::int32_t{1}).failure);
    EXPECT_EQ(scene.run("MLayer", "a|b").failure->number, -2145386493);
    EXPECT_EQ(layers_of(scene), tried.layers);
  }
}

TEST(Replace, MarksTheMiddlesOfThePolylinesOfOneLayer) {
  Scene scene(rectangle_lines("30", "Walls", 0) + rectangle_lines("31", "Walls", -101, false) +
              rectangle_lines("32", "Walls B", 50) + line_lines("33", "Walls"));
  EXPECT_FALSE(scene.run("Replace", "Walls").failure);
  EXPECT_FALSE(scene.run("Replace", "Other", true).failure);
  EXPECT_FALSE(scene.drawing().is_changed());

  const Outcome outcome = scene.run("Replace", "Walls", true);
  ASSERT_FALSE(outcome.failure) << outcome.failure->description;
  const auto all = scene.document().ModelSpace();
  ASSERT_EQ(all.Count(), 6);
  const host::Point centres[] = {{10, 5, 0}, {-91, 5, 0}};
  for (const std::int32_t i : {0, 1}) {
    const auto circle = host::as<host::Circle>(all.Item(4 + i));
    EXPECT_EQ(circle.Center(), centres[i]);
    EXPECT_EQ(circle.Radius(), 40);
    EXPECT_EQ(circle.Color(), 7);
    EXPECT_EQ(circle.Layer(), "Eng-STAGGERED");
  }
  EXPECT_THAT(scene.said(), IsEmpty());
}

/// A line on each of these layers, from handle 30 on; the layers stand in this order.
class NmLayer : public testing::Test {
 protected:
  void lines_on(const std::vector<const char*>& layers) {
    std::string entities;
    for (std::size_t i = 0; i < layers.size(); ++i) entities += line_lines(handle(i));
    scene.reset();
    scene = std::make_unique<Scene>(entities);
    for (std::size_t i = 0; i < layers.size(); ++i) {
      scene->document().Layers().Add(layers[i]);
      scene->entity<Entity>(handle(i)).Layer(layers[i]);
    }
  }
  std::vector<std::string> layers_of_lines() const {
    std::vector<std::string> names;
    for (const Entity& line : scene->document().ModelSpace()) names.push_back(line.Layer());
    return names;
  }
  static std::string handle(std::size_t i) { return std::to_string(30 + i); }

  std::unique_ptr<Scene> scene;
};

TEST_F(NmLayer, RenamesLayersOrMovesWhatIsOnThemToOneThatIsThere) {
  lines_on({"A-old-old", "B-Old", "B-new", "b-OLDER", "Walls"});
  EXPECT_FALSE(scene->run("NmLayer", "OLD", "new").failure);
  EXPECT_THAT(layers_of_lines(), ElementsAre("A-new-old", "B-new", "B-new", "b-newER", "Walls"));
  EXPECT_THAT(layers_of(*scene), testing::HasSubstr("B-Old ")) << "emptied, but it stays";
  EXPECT_THAT(scene->said(), IsEmpty());
}

TEST_F(NmLayer, PassesOverLayersThatKeepTheirNames) {
  lines_on({"0", "defpoints", "p0", "Locked"});
  const std::string before = layers_of(*scene);
  EXPECT_FALSE(scene->run("NmLayer", "", "X").failure);
  EXPECT_FALSE(scene->run("NmLayer", "Wall", "a|").failure) << "a name that the host refuses";
  EXPECT_EQ(layers_of(*scene), before);
  EXPECT_FALSE(scene->run("NmLayer", std::int16_t{0}, "1").failure);
  EXPECT_FALSE(scene->run("NmLayer", "defpoints", "1").failure);
  EXPECT_FALSE(scene->run("NmLayer", "locked", "LOCKED").failure) << "its own, in other case";
  EXPECT_THAT(layers_of_lines(), ElementsAre("0", "defpoints", "p1", "LOCKED"));
}

TEST_F(NmLayer, WhatMovedToALayerThatIsEmptiedLaterMovesOnWithIt) {
  lines_on({"AA", "BA", "BB"});
  EXPECT_FALSE(scene->run("NmLayer", "A", "B").failure);
  EXPECT_THAT(layers_of_lines(), ElementsAre("BB", "BB", "BB"));

  lines_on({"BB", "BA", "AA"});
  EXPECT_FALSE(scene->run("NmLayer", "A", "B").failure);
  EXPECT_THAT(layers_of_lines(), ElementsAre("BB", "BB", "BA")) << "BA came before AA";
}

}  // namespace
}  // namespace velmar
