#include <gmock/gmock.h>

#include "scenes/entity_lines.h"
#include "scenes/scene.h"

namespace velmar {
namespace {

using basic::Value;
using host::Entity;
using testing::ElementsAre;
using testing::IsEmpty;

const char* const ready_in_line = "Autocad Ready.";
const char* const select_layer = "\r\nSelect Layer";

class ReplaceLineByType : public testing::Test {
 protected:
  /// All with the linetype DASHED, spelled in two ways; the last one without.
  Scene scene{line_lines("30", "Walls", "6 DASHED\n62 3\n48 0.5\n", "5") +
              circle_lines("31", "0", "6 dashed\n48 2\n") +
              circle_lines("32", "Locked", "6 DASHED\n48 2\n") +
              line_lines("33", "Locked", "6 DASHED\n") + line_lines("34")};
};

TEST_F(ReplaceLineByType, RescalesTheLinetypeAndDrawsItsLinesAnewAtHeight0) {
  scene.answers({"#30", "2.5"});
  EXPECT_FALSE(scene.run("ReplaceLineByType").failure);
  EXPECT_THAT(scene.asked(), ElementsAre("\r\n[Select LineType]",
                                         "\r\nSpecify LineTypeScale [DASHED] Current <0.5>: "));
  EXPECT_THAT(scene.said(), ElementsAre(ready_in_line));

  EXPECT_FALSE(scene.has("30"));
  EXPECT_EQ(scene.entity<Entity>("31").LinetypeScale(), 2.5);
  EXPECT_EQ(scene.entity<Entity>("32").LinetypeScale(), 2);
  EXPECT_TRUE(scene.has("33"));
  EXPECT_EQ(scene.entity<Entity>("34").LinetypeScale(), 1);
  const auto all = scene.document().ModelSpace();
  ASSERT_EQ(all.Count(), 5) << "a line that cannot be deleted gets no second";
  const auto line = host::as<host::Line>(all.Item(4));
  EXPECT_EQ(line.StartPoint(), (host::Point{0, 0, 0}));
  EXPECT_EQ(line.EndPoint(), (host::Point{10, 0, 0}));
  EXPECT_EQ(line.Layer(), "Walls");
  EXPECT_EQ(line.Linetype(), "DASHED");
  EXPECT_EQ(line.LinetypeScale(), 2.5);
  EXPECT_EQ(line.Color(), 3);
}

TEST_F(ReplaceLineByType, EnterEscapeAndZeroAreTheScale1) {
  for (const char* answer : {"", "^C", "0"}) {
    scene.entity<Entity>("31").LinetypeScale(7);
    scene.answers({"#31", answer});
    EXPECT_FALSE(scene.run("ReplaceLineByType").failure);
    EXPECT_EQ(scene.asked().back(), "\r\nSpecify LineTypeScale [dashed] Current <7>: ");
    EXPECT_EQ(scene.entity<Entity>("31").LinetypeScale(), 1);
    EXPECT_THAT(scene.said(), ElementsAre(ready_in_line));
  }
}

TEST_F(ReplaceLineByType, MatchesByLayerAndEndsQuietlyWithoutAPick) {
  scene.answers({"^C"});
  EXPECT_FALSE(scene.run("ReplaceLineByType").failure);
  EXPECT_THAT(scene.said(), IsEmpty());
  EXPECT_FALSE(scene.drawing().is_changed());
  scene.answers({"#34", "3"});
  EXPECT_FALSE(scene.run("ReplaceLineByType").failure);
  EXPECT_FALSE(scene.has("34"));
  EXPECT_EQ(scene.entity<Entity>("31").LinetypeScale(), 2);
}

TEST(HatchLayer, TakesTheLayerOfThePickedEntity) {
  Scene scene(rectangle_lines("30", "0", 0) + circle_lines("31", "Walls"));
  scene.answers({"#31"});
  const Outcome outcome = scene.run("Hatch_Layer", "ignored");
  EXPECT_FALSE(outcome.failure);
  EXPECT_EQ(outcome.arguments[0], Value("Walls"));
  EXPECT_THAT(scene.asked(), ElementsAre(select_layer));
  EXPECT_THAT(scene.said(), ElementsAre(ready_in_line));
  EXPECT_FALSE(scene.drawing().is_changed()) << "no polyline is on that layer";

  scene.answers({"^C"});
  EXPECT_FALSE(scene.run("Hatch_Layer").failure);
  EXPECT_THAT(scene.said(), IsEmpty());
}

TEST(DimLayer, AsksForALayerAndADistance) {
  Scene scene(rectangle_lines("30", "Walls", 0, false) + circle_lines("31", "Walls"));
  const std::vector<std::string> answers = {"#31", "0,0", "@3<90"};
  for (std::size_t given = 0; given <= answers.size(); ++given) {
    scene.answers({answers.begin(), answers.begin() + static_cast<std::ptrdiff_t>(given)});
    const Outcome outcome = scene.run("Dim_Layer", "ignored");
    EXPECT_FALSE(outcome.failure);
    EXPECT_EQ(outcome.arguments[0], Value(given == 0 ? "ignored" : "Walls"));
    EXPECT_EQ(scene.said().size(), given == answers.size() ? 1u : 0u);
  }
  EXPECT_THAT(scene.asked(), ElementsAre(select_layer, "\r\nFirst point: ", "\r\nSecond point: "));
  EXPECT_THAT(scene.said(), ElementsAre(ready_in_line));
  EXPECT_FALSE(scene.drawing().is_changed()) << "the polyline is open";
}

}  // namespace
}  // namespace velmar
