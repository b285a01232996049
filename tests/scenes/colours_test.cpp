#include <gmock/gmock.h>

#include "basic/conversion.h"
#include "scenes/entity_lines.h"
#include "scenes/scene.h"

namespace velmar {
namespace {

using basic::Value;
using host::Entity;
using testing::ElementsAre;
using testing::IsEmpty;

const char* const ready = "\r\nAutocad Ready.";

std::string plan() {
  return line_lines("30", "Walls") + line_lines("31", "0", "62 3\n") +
         circle_lines("32", "Walls", "62 3\n") + circle_lines("33") +
         circle_lines("34", "Walls", "62 0\n") + circle_lines("35", "Walls", "62 256\n");
}

std::string left_of(const Scene& scene) {
  std::string handles;
  for (const Entity& entity : scene.document().ModelSpace()) handles += entity.Handle() + " ";
  return handles;
}

constexpr std::int16_t by_layer = 256;

TEST(ColDel, DeletesAKindByColour) {
  struct Case {
    std::int16_t colour;
    const char *kind, *kind_then, *left;
  };
  const Case cases[] = {
      {3, "C", "AcDbCircle", "30 31 33 34 35 "},
      {0, "c", "AcDbCircle", "30 31 32 34 "},
      {3, "", "AcDbLine", "30 32 33 34 35 "},
      {256, "l", "AcDbLine", "31 32 33 34 35 "},
      {3, "D", "D", "30 31 32 33 34 35 "},
      {3, "PLW", "PLW", "30 31 32 33 34 35 "},
      {3, "AcDbCircle", "AcDbCircle", "30 31 33 34 35 "},
  };
  for (const Case& tried : cases) {
    Scene scene(plan());
    const Outcome outcome = scene.run("ColDel", tried.colour, tried.kind);
    ASSERT_FALSE(outcome.failure) << outcome.failure->description;
    EXPECT_TRUE(outcome.result.is<basic::Empty>());
    EXPECT_EQ(left_of(scene), tried.left) << tried.colour << tried.kind;
    EXPECT_EQ(outcome.arguments[0], Value(tried.colour == 0 ? by_layer : tried.colour));
    EXPECT_EQ(outcome.arguments[1], Value(tried.kind_then));
    EXPECT_THAT(scene.said(), ElementsAre(ready));
  }
}

TEST(ColDelLayer, DeletesAKindByColourAndLayer) {
  const std::pair<Value, const char*> cases[] = {{"Walls", "30 31 32 33 34 "},
                                                 {"walls", "30 31 32 33 34 35 "},
                                                 {"0", "30 31 32 34 35 "},
                                                 {std::int16_t{0}, "30 31 32 33 34 35 "},
                                                 {basic::Null{}, "30 31 32 33 34 35 "}};
  for (const auto& [layer, left] : cases) {
    Scene scene(plan());
    const Outcome outcome = scene.run("ColDelLayer", std::int16_t{0}, layer, "C");
    ASSERT_FALSE(outcome.failure) << outcome.failure->description;
    EXPECT_EQ(left_of(scene), left);
    EXPECT_EQ(outcome.arguments[0], Value(by_layer));
    EXPECT_THAT(scene.said(), ElementsAre(ready));
  }
}

TEST(ColLayerObj, ColoursAKindOnALayerAndMakesTheLayer) {
  Scene scene(plan());
  EXPECT_FALSE(scene.run("ColLayerObj", std::int16_t{0}, "Walls", "c").failure);
  EXPECT_EQ(scene.entity<Entity>("32").Color(), 0);
  EXPECT_EQ(scene.entity<Entity>("33").Color(), 256);
  EXPECT_EQ(scene.entity<Entity>("30").Color(), 256);
  const Outcome outcome = scene.run("ColLayerObj", std::int16_t{5}, "Walls", "");
  EXPECT_EQ(outcome.arguments[2], Value("AcDbLine"));
  EXPECT_EQ(scene.entity<Entity>("30").Color(), 5);
  EXPECT_EQ(scene.entity<Entity>("32").Color(), 0);
  EXPECT_FALSE(scene.run("ColLayerObj", std::int16_t{5}, "New", "C").failure);
  EXPECT_EQ(scene.document().Layers().Item("New").Color(), 7) << "its colour is not asked for";
  EXPECT_THAT(scene.said(), ElementsAre(ready, ready, ready));
}

TEST(ColorToLayer, MovesAKindByColourToALayer) {
  Scene scene(plan());
  const Outcome outcome = scene.run("ColorToLayer", std::int32_t{3}, "New", "C");
  ASSERT_FALSE(outcome.failure) << outcome.failure->description;
  EXPECT_EQ(scene.document().Layers().Item("New").Color(), 3);
  EXPECT_EQ(scene.entity<Entity>("32").Layer(), "New");
  EXPECT_EQ(scene.entity<Entity>("32").Color(), 3);
  EXPECT_EQ(scene.entity<Entity>("31").Layer(), "0");
  EXPECT_FALSE(scene.run("ColorToLayer", std::int32_t{0}, "By block", "C").failure);
  EXPECT_EQ(scene.entity<Entity>("34").Layer(), "By block") << "0 is not turned into 256 here";
  EXPECT_EQ(scene.entity<Entity>("35").Layer(), "Walls");
  EXPECT_EQ(scene.run("ColorToLayer", std::int32_t{3}, "New", "D").arguments[2],
            Value("AcDbRotatedDimension"));
  EXPECT_EQ(scene.run("ColorToLayer", std::int32_t{3}, "New", "d").arguments[2], Value("d"));
  EXPECT_THAT(scene.said(), ElementsAre(ready, ready, ready, ready));
}

TEST(Colours, ARefusalEndsTheCommandAndWhatIsDoneStays) {
  const std::string locked = line_lines("40", "0", "62 4\n") +
                             line_lines("41", "Locked", "62 4\n") + line_lines("42", "0", "62 4\n");
  Scene scene(locked);
  EXPECT_LT(scene.run("ColDel", std::int16_t{4}, "L").failure->number, 0);
  EXPECT_EQ(left_of(scene), "41 42 ");
  EXPECT_LT(scene.run("ColorToLayer", std::int32_t{4}, "Walls", "L").failure->number, 0);
  EXPECT_LT(scene.run("ColLayerObj", std::int16_t{300}, "0", "L").failure->number, 0);
  EXPECT_LT(scene.run("ColLayerObj", std::int16_t{3}, "a|b", "L").failure->number, 0);
  EXPECT_THAT(scene.said(), IsEmpty());
}

}  // namespace
}  // namespace velmar
