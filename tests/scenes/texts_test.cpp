#include <gmock/gmock.h>

#include "basic/conversion.h"
#include "scenes/entity_lines.h"
#include "scenes/scene.h"

namespace velmar {
namespace {

using basic::LeftOut;
using basic::Value;
using host::Text;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr double quarter_turn = 1.570796326794897;

host::Point middle(const host::Entity& entity) {
  const host::Box box = entity.GetBoundingBox();
  return {(box.min.x + box.max.x) / 2, (box.min.y + box.max.y) / 2, 0};
}

TEST(Text, IsColouredByWhatItSaysUnlessAColourIsGiven) {
  struct Case {
    const char* content;
    std::int32_t given, expected;
  };
  const Case cases[] = {{"Section A-A", 0, 3}, {"Scale 1:50", 0, 7}, {"section", 0, 1},
                        {"scale", 0, 1},       {"Sectio", 0, 1},     {"Section", 5, 5},
                        {"Note", 256, 256}};
  Scene scene{std::string()};
  for (const Case& tried : cases) {
    const Outcome outcome = scene.run("Text", tried.content, 1.0, 2.0, 0.0, 3.5, LeftOut{},
                                      LeftOut{}, tried.given, LeftOut{});
    ASSERT_FALSE(outcome.failure) << outcome.failure->description;
    const auto all = scene.document().ModelSpace();
    EXPECT_EQ(all.Item(all.Count() - 1).Color(), tried.expected) << tried.content;
  }
  EXPECT_THAT(scene.said(), IsEmpty());
}

TEST(Text, IsPlacedTurnedHiddenAndPutOnANewLayerAndTheAngleComesBackInRadians) {
  Scene scene{std::string()};
  const Outcome outcome = scene.run("Text", "door", "1.5", std::int32_t{2}, 90.0, 3.5, "New", true);
  ASSERT_FALSE(outcome.failure) << outcome.failure->description;
  EXPECT_TRUE(outcome.result.is<basic::Empty>());
  EXPECT_NEAR(basic::number(outcome.arguments[3]), quarter_turn, 1e-15);
  const auto text = host::as<Text>(scene.document().ModelSpace().Item(0));
  EXPECT_EQ(text.TextString(), "door");
  EXPECT_EQ(text.InsertionPoint(), (host::Point{1.5, 2, 0}));
  EXPECT_NEAR(text.Rotation(), quarter_turn, 1e-12);
  EXPECT_EQ(text.Height(), 3.5);
  EXPECT_EQ(text.Layer(), "New");
  EXPECT_FALSE(text.Visible());
}

TEST(Text, TakesTheContentOfAnotherTextOrFailsBeforeAnythingIsAdded) {
  Scene scene(lines({"30", "Section B"}) + circle_lines("31"));
  const Outcome copied =
      scene.run("Text", "mine", 0.0, 0.0, 0.0, 1.0, LeftOut{}, LeftOut{}, LeftOut{}, "30");
  EXPECT_EQ(copied.arguments[0], Value("Section B"));
  EXPECT_EQ(scene.document().ModelSpace().Item(2).Color(), 3);

  const Outcome of_a_circle =
      scene.run("Text", "mine", 0.0, 0.0, 90.0, 1.0, "New", LeftOut{}, LeftOut{}, "31");
  EXPECT_EQ(of_a_circle.failure->number, basic::type_mismatch);
  EXPECT_EQ(of_a_circle.arguments[3], Value(90.0));
  EXPECT_EQ(scene.run("Text", "mine", "far", 0.0, 0.0, 1.0).failure->number, basic::type_mismatch);
  EXPECT_EQ(scene.document().ModelSpace().Count(), 3);
}

class RotateAllText : public testing::Test {
 protected:
  double degrees(const char* handle) {
    return scene.entity<Text>(handle).Rotation() * 180 / 3.141592653589793;
  }
  Scene scene{lines({"30", "one", "Walls", "30"}) + lines({"31", "ALL", "Walls", "30"}) +
              lines({"32", "three", "Walls", "45"}) + lines({"33", "four", "0", "30"}) +
              line_lines("34", "Walls")};
};

TEST_F(RotateAllText, TurnsTheTextsThatLieAsThePickedOneAboutTheirMiddles) {
  const host::Point before = middle(scene.entity<Text>("30"));
  scene.answers({"#30", "15"});
  const Outcome outcome = scene.run("RotateAllText", LeftOut{}, LeftOut{}, false);
  ASSERT_FALSE(outcome.failure) << outcome.failure->description;
  EXPECT_TRUE(outcome.result.is<basic::Empty>());
  EXPECT_EQ(outcome.arguments[2], Value(false));
  EXPECT_NEAR(degrees("30"), 45, 1e-9);
  EXPECT_NEAR(degrees("31"), 45, 1e-9);
  EXPECT_NEAR(degrees("32"), 45, 1e-9);
  EXPECT_NEAR(degrees("33"), 30, 1e-9);
  const host::Point after = middle(scene.entity<Text>("30"));
  EXPECT_NEAR(after.x, before.x, 1e-9);
  EXPECT_NEAR(after.y, before.y, 1e-9);
  EXPECT_THAT(scene.asked(),
              ElementsAre("\r\nSelect one of Text you Want Rotate ", "\r\nEnter Rotation Angle: "));
  EXPECT_THAT(scene.said(), ElementsAre("Autocad Ready."));
}

TEST_F(RotateAllText, ATextReadingAllTurnsItsWholeLayerAndAGivenAngleWins) {
  scene.answers({"#31", "15"});
  const Outcome outcome = scene.run("RotateAllText", "0", 10.0, false);
  EXPECT_EQ(outcome.arguments[2], Value(true));
  EXPECT_NEAR(degrees("30"), 40, 1e-9);
  EXPECT_NEAR(degrees("32"), 55, 1e-9);
  EXPECT_NEAR(degrees("33"), 30, 1e-9);
}

TEST_F(RotateAllText, AsksNothingForAllTextsOfAGivenLayer) {
  scene.answers({});
  EXPECT_FALSE(scene.run("RotateAllText", "walls", 10.0, true).failure);
  EXPECT_NEAR(degrees("30"), 30, 1e-9) << "names of layers differ by letter case";
  EXPECT_FALSE(scene.run("RotateAllText", "Walls", 10.0, true).failure);
  EXPECT_NEAR(degrees("30"), 40, 1e-9);
  EXPECT_NEAR(degrees("32"), 55, 1e-9);
  EXPECT_THAT(scene.asked(), IsEmpty());
  EXPECT_THAT(scene.said(), ElementsAre("Autocad Ready.", "Autocad Ready."));
}

TEST_F(RotateAllText, AFailureReachesTheCallerAndNothingIsTurned) {
  const std::pair<std::vector<std::string>, std::int32_t> cases[] = {
      {{"^C"}, -2147352567}, {{"#34"}, basic::type_mismatch}, {{"#30", "^C"}, -2147352567}};
  for (const auto& [answers, number] : cases) {
    scene.answers(answers);
    EXPECT_EQ(scene.run("RotateAllText").failure->number, number) << answers.back();
    EXPECT_THAT(scene.said(), IsEmpty());
  }
  EXPECT_FALSE(scene.drawing().is_changed());
}

TEST(ReplaceT, ReplacesOrDeletesTextsThatReadExactlySo) {
  Scene scene(lines({"30", "door"}) + lines({"31", "Door"}) + lines({"32", "door 2"}) +
              lines({"33", "door", "Walls"}));
  EXPECT_FALSE(scene.run("ReplaceTL", "door", "gate", "Walls").failure);
  EXPECT_EQ(text_string(scene, "33"), "gate");
  EXPECT_EQ(text_string(scene, "30"), "door");
  EXPECT_FALSE(scene.run("ReplaceTL", "door", LeftOut{}, "walls").failure);
  EXPECT_FALSE(scene.run("ReplaceTL", "door").failure);
  EXPECT_TRUE(scene.has("30"));

  EXPECT_FALSE(scene.run("ReplaceT", "door", "gate").failure);
  EXPECT_EQ(text_string(scene, "30"), "gate");
  EXPECT_EQ(text_string(scene, "31"), "Door");
  EXPECT_EQ(text_string(scene, "32"), "door 2");
  EXPECT_FALSE(scene.run("ReplaceT", "gate").failure);
  EXPECT_FALSE(scene.has("30"));
  EXPECT_FALSE(scene.has("33"));
  EXPECT_TRUE(scene.has("32"));
  EXPECT_THAT(scene.said(), IsEmpty());
}

TEST(ReplaceT, ALockedLayerEndsItAndWhatWasReplacedStays) {
  Scene scene(lines({"30", "a"}) + lines({"31", "a", "Locked"}) + lines({"32", "a"}));
  EXPECT_LT(scene.run("ReplaceT", "a", "b").failure->number, 0);
  EXPECT_EQ(text_string(scene, "30"), "b");
  EXPECT_EQ(text_string(scene, "31"), "a");
  EXPECT_EQ(text_string(scene, "32"), "a");
}

TEST(ReplaceInT, ReplacesInsideTheTextsThatItsSwitchesChoose) {
  struct Case {
    const char *layer, *new_text;
    bool first, whole;
    std::vector<std::string> expected;  // "-" for a text that was deleted
  };
  const Case cases[] = {
      {"", "X", false, false, {"XXX", "X", "A", "X b"}},
      {"", "X", true, false, {"Xaa", "X", "A", "X b"}},
      {"", "X", false, true, {"aaa", "X", "A", "a b"}},
      {"", "", false, false, {"-", "-", "A", " b"}},
      {"", "aa", false, false, {"aaaaaa", "aa", "A", "aa b"}},
      {"Walls", "X", false, false, {"aaa", "a", "A", "X b"}},
      {"walls", "X", false, false, {"aaa", "a", "A", "a b"}},
  };
  const char* const handles[] = {"30", "31", "32", "33"};
  for (const Case& tried : cases) {
    Scene scene(lines({"30", "aaa"}) + lines({"31", "a"}) + lines({"32", "A"}) +
                lines({"33", "a b", "Walls"}) + line_lines("34"));
    const Outcome outcome =
        scene.run("ReplaceInT", "a", tried.new_text, tried.layer, tried.first, tried.whole);
    ASSERT_FALSE(outcome.failure) << outcome.failure->description;
    for (std::size_t i = 0; i < std::size(handles); ++i) {
      EXPECT_EQ(scene.has(handles[i]) ? text_string(scene, handles[i]) : "-", tried.expected[i])
          << tried.new_text << " " << handles[i];
    }
    EXPECT_FALSE(scene.run("ReplaceInT", "", "X").failure);
  }
}

TEST(TextBar, WritesTheCallOffOfABar) {
  struct Case {
    Value size, mark, count, type;
    std::int16_t spacing;
    const char *note, *label;
  };
  const Case cases[] = {
      {std::int16_t{16}, "01", std::int16_t{20}, "T", 200, "B1", "20T16-01-200 B1"},
      {12.5, std::int16_t{7}, std::int16_t{0}, "R", 0, "", "R12.5-7"},
      {"10", "A", basic::Empty{}, "T", -5, "", "T10-A--5"},
  };
  for (const Case& tried : cases) {
    Scene scene{std::string()};
    const Outcome outcome = scene.run("TextBar", 100.0, 50.0, tried.size, tried.mark, tried.spacing,
                                      tried.count, tried.type, tried.note);
    ASSERT_FALSE(outcome.failure) << outcome.failure->description;
    EXPECT_EQ(outcome.arguments[1], Value(50.0));
    const auto text = host::as<Text>(scene.document().ModelSpace().Item(0));
    EXPECT_EQ(text.TextString(), tried.label);
    EXPECT_EQ(text.InsertionPoint(), (host::Point{100, 50, 0}));
    EXPECT_EQ(text.Height(), 250);
    EXPECT_EQ(text.Rotation(), 0);
    EXPECT_EQ(text.Layer(), "Eng-TEXTBAR");
  }
}

}  // namespace
}  // namespace velmar
