#include <gmock/gmock.h>

#include "scenes/entity_lines.h"
#include "scenes/scene.h"

namespace velmar {
namespace {

using basic::Value;
using host::Text;
using testing::ElementsAre;
using testing::IsEmpty;
using Answers = std::vector<std::string>;

std::string remembered(Scene& scene, const char* key) {
  return scene.system().setting({"Velmar", "Key", key});
}
void remember(Scene& scene, const char* key, const char* value) {
  scene.system().save_setting({"Velmar", "Key", key}, value);
}

const char* const select_first = "\r\nSelect First Text";
const char* const select_second = "\r\nSelect Second Text";
const char* const ready_again = "\r\nAutocad Ready.";

TEST(ChangeLetterCase, AppliesTheAnsweredOrTheRememberedMode) {
  struct Case {
    const char *remembered, *answer, *shown, *expected, *remembered_then;
  };
  const Case cases[] = {
      {"", "", "Upper", "MAIN DOOR", ""},
      {"", "t", "Upper", "Main Door", "Title"},
      {"Title", "", "Title", "Main Door", "Title"},
      {"Title", "L", "Title", "main door", "Lower"},
      {"Lower", "i", "Lower", "MAIN dOOR", "Invert"},
      {"Upper", "u", "Upper", "MAIN DOOR", "Upper"},
      {"invert", "", "invert", "MAIN dOOR", "invert"},
      {"?", "", "?", "main Door", "?"},
      {"Lower", "^C", "Lower", "main door", "Lower"},
  };
  for (const Case& tried : cases) {
    Scene scene(lines({"30", "main Door"}));
    if (*tried.remembered) remember(scene, "CLT", tried.remembered);
    scene.answers({"#30", tried.answer});
    const Outcome outcome = scene.run("ChangeLetterCase");
    EXPECT_FALSE(outcome.failure);
    EXPECT_TRUE(outcome.result.is<basic::Empty>());
    EXPECT_EQ(text_string(scene, "30"), tried.expected) << tried.remembered << tried.answer;
    EXPECT_EQ(remembered(scene, "CLT"), tried.remembered_then);
    EXPECT_THAT(scene.asked(), ElementsAre("\r\nSelect Text", "\r\n[Upper,Lower,Title,Invert] <" +
                                                                  std::string(tried.shown) + ">:"));
    EXPECT_THAT(scene.said(), IsEmpty());
  }
}

TEST(ChangeLetterCase, AFailedPickAsksNoMoreAndAnotherKindIsAskedAboutButStays) {
  Scene scene(circle_lines("30"));
  scene.answers({"^C", "L"});
  EXPECT_FALSE(scene.run("ChangeLetterCase").failure);
  EXPECT_THAT(scene.asked(), ElementsAre("\r\nSelect Text"));
  EXPECT_EQ(remembered(scene, "CLT"), "");

  scene.answers({"#30", "L"});
  EXPECT_FALSE(scene.run("ChangeLetterCase").failure);
  EXPECT_EQ(remembered(scene, "CLT"), "Lower");
  EXPECT_FALSE(scene.drawing().is_changed());
}

TEST(CountInText, CountsTextsAndNamesTheLayersThatAreNotInTheListYet) {
  Scene scene(lines({"30", "xaby", "Walls"}) + lines({"31", "AB AB", "all"}) +
              lines({"32", "ab", "B-2"}) + lines({"33", "a b", "C"}) + lines({"34", "ab", "b-2 "}) +
              lines({"35", "Ab", "Walls"}) + door_lines("36", "AB", "ab"));
  scene.answers({"AB"});
  const Outcome outcome = scene.run("CountInText");
  ASSERT_FALSE(outcome.failure) << outcome.failure->description;
  EXPECT_EQ(outcome.result, Value(std::int16_t{5}));
  EXPECT_THAT(scene.asked(), ElementsAre("\r\nEnter KeyWord for search: "));
  EXPECT_THAT(scene.said(),
              ElementsAre("\r\nCount of this specific word AB Is: 5 At Layer/Layers Walls-B-2"));
}

TEST(CountInText, SaysZeroForAWordThatIsNowhereAndNothingForNone) {
  Scene scene(lines({"30", "door"}));
  scene.answers({"a b"});
  EXPECT_EQ(scene.run("CountInText").result, Value(std::int16_t{0}));
  EXPECT_THAT(scene.said(),
              ElementsAre("\r\nCount of this specific word a b Is: 0 At Layer/Layers "));
  scene.answers({""});
  EXPECT_EQ(scene.run("CountInText").result, Value(std::int16_t{0}));
  EXPECT_THAT(scene.said(), IsEmpty());
  scene.answers({"^C"});
  EXPECT_EQ(scene.run("CountInText").failure->number, -2147352567);
}

TEST(Joint2Text, TakesItsTwoAnswersAndRemembersThem) {
  struct Case {
    const char *delete_before, *separator_before;
    Answers answers;
    const char* joined;
    bool deleted;
    const char *delete_then, *separator_then;
  };
  const Case cases[] = {
      {"", "", {"", ""}, "ab cd", true, "y", "sp"},
      {"", "", {"y", "-"}, "ab-cd", true, "y", "-"},
      {"", "-", {"yes", ""}, "ab-cd", true, "y", "-"},
      {"", "", {"Y", "SP"}, "ab cd", true, "n", "sp"},
      {"", "", {"Yes", "Sp"}, "ab cd", true, "n", "sp"},
      {"y", "sp", {"n", " "}, "ab cd", false, "n", " "},
      {"y", "", {"yep", ", "}, "ab, cd", false, "y", ", "},
      {"n", "", {"", ""}, "ab cd", false, "n", "sp"},
  };
  for (const Case& tried : cases) {
    Scene scene(lines({"30", "ab"}) + lines({"31", "cd"}));
    if (*tried.delete_before) remember(scene, "J2TA", tried.delete_before);
    if (*tried.separator_before) remember(scene, "J2T", tried.separator_before);
    scene.answers({tried.answers[0], tried.answers[1], "#30", "#31"});
    EXPECT_FALSE(scene.run("Joint2Text").failure);
    EXPECT_EQ(text_string(scene, "30"), tried.joined);
    EXPECT_EQ(scene.has("31"), !tried.deleted) << tried.answers[0];
    EXPECT_EQ(remembered(scene, "J2TA"), tried.delete_then);
    EXPECT_EQ(remembered(scene, "J2T"), tried.separator_then);
    const auto shown = [](const char* value, const char* otherwise) {
      return " <" + std::string(*value ? value : otherwise) + "> :";
    };
    EXPECT_THAT(
        scene.asked(),
        ElementsAre("\r\nDo you want to delete second text y/n" + shown(tried.delete_before, "y"),
                    "\r\nEnter Seperator between texts (Enter sp for Space)" +
                        shown(tried.separator_before, "sp"),
                    select_first, select_second, select_first));
    EXPECT_THAT(scene.said(), IsEmpty()) << "the pick that failed ends it quietly";
  }
}

TEST(Joint2Text, GoesOnUntilAPickFailsOrIsNoText) {
  const auto scene_text = lines({"30", "a"}) + lines({"31", "b"}) + lines({"32", "c"}) +
                          lines({"33", "d", "Locked"}) + circle_lines("34");
  struct Case {
    Answers picks;
    const char *first, *first_then;
    std::vector<std::string> said;
  };
  const Case cases[] = {
      {{"#30", "#31", "#30", "#32", "#34", "#33"}, "30", "a b c", {ready_again}},
      {{"#32", "#34"}, "32", "c", {ready_again}},
      {{"#33", "#32"}, "33", "d", {ready_again}},
      {{"#32", "^C"}, "32", "c", {}},
      {{"^C"}, "32", "c", {}},
  };
  for (const Case& tried : cases) {
    Scene scene(scene_text);
    Answers answers = {"y", "sp"};
    answers.insert(answers.end(), tried.picks.begin(), tried.picks.end());
    scene.answers(answers);
    EXPECT_FALSE(scene.run("Joint2Text").failure);
    EXPECT_EQ(text_string(scene, tried.first), tried.first_then);
    EXPECT_EQ(scene.said(), tried.said) << tried.picks.front();
    EXPECT_EQ(scene.answers_left(), 0u);
    EXPECT_TRUE(scene.has("34"));
    EXPECT_EQ(scene.has("32"), tried.picks.size() < 6) << "a text that was not joined stays";
  }
}

TEST(TextIndex, NumbersOrLettersWhatIsPicked) {
  struct Case {
    const char *remembered, *answer, *shown;
    std::vector<std::string> expected;
    const char* remembered_then;
  };
  const Case cases[] = {{"", "", "N", {"1) x", "2) y", "3) z"}, "N"},
                        {"", "l", "N", {"A) x", "B) y", "C) z"}, "L"},
                        {"L", "", "L", {"A) x", "B) y", "C) z"}, "L"},
                        {"Numbers", "", "Numbers", {"1) x", "2) y", "3) z"}, "N"},
                        {"L", "n", "L", {"1) x", "2) y", "3) z"}, "N"}};
  for (const Case& tried : cases) {
    Scene scene(lines({"30", "x"}) + lines({"31", "y"}) + lines({"32", "z"}));
    if (*tried.remembered) remember(scene, "TI", tried.remembered);
    scene.answers({tried.answer, "#30", "#31", "#32"});
    EXPECT_FALSE(scene.run("TextIndex").failure);
    EXPECT_THAT(
        (Answers{text_string(scene, "30"), text_string(scene, "31"), text_string(scene, "32")}),
        tried.expected);
    EXPECT_EQ(remembered(scene, "TI"), tried.remembered_then);
    EXPECT_THAT(
        scene.asked(),
        ElementsAre("\r\n[Numbers,Letters] <" + std::string(tried.shown) + ">:", "\r\nSelect Text",
                    "\r\nSelect Text", "\r\nSelect Text", "\r\nSelect Text"));
    EXPECT_THAT(scene.said(), ElementsAre("\r\nPut Text Index"));
  }
}

TEST(TextIndex, BehindZThereIsNoLetterAndWhatIsNoTextEndsIt) {
  Scene scene(lines({"30", "x"}) + circle_lines("31"));
  Answers answers = {"L"};
  for (int i = 0; i < 28; ++i) answers.emplace_back("#30");
  answers.emplace_back("#31");
  scene.answers(answers);
  EXPECT_FALSE(scene.run("TextIndex").failure);
  EXPECT_THAT(text_string(scene, "30"), testing::StartsWith(") ) Z) Y) "));
  EXPECT_THAT(scene.said(), ElementsAre("\r\nPut Text Index", ready_again));

  scene.answers({"^C", "#30"});
  EXPECT_FALSE(scene.run("TextIndex").failure);
  EXPECT_THAT(text_string(scene, "30"), testing::StartsWith(") ) Z) "));
  EXPECT_THAT(scene.said(), ElementsAre("\r\nPut Text Index"));
}

TEST(ReplaceTag, ReplacesTheValueInEveryInsertionOfTheBlock) {
  Scene scene(door_lines("30", "NUMBER", "D1") + door_lines("31", "Number", "D2") +
              door_lines("32", "NAME", "D1") + door_lines("33", "NUMBER", "D1", "Locked") +
              lines({"34", "D1"}));
  const auto value = [&](const char* handle) {
    return scene.entity<host::Attribute>(handle).TextString();
  };
  scene.answers({"#30", "number", "D1", "N 1"});
  EXPECT_FALSE(scene.run("ReplaceTag").failure);
  EXPECT_THAT((Answers{value("30F"), value("31F"), value("32F"), value("33F")}),
              ElementsAre("N 1", "D2", "D1", "D1"));
  EXPECT_THAT(scene.asked(),
              ElementsAre("\r\nSelect Block", "\r\nEnter Tag Name: ",
                          "\r\nEnter Old Text (Enter for any): ", "\r\nEnter New Text: "));
  EXPECT_THAT(scene.said(), ElementsAre("\r\nTag {number} Replaced 1 found", ready_again));

  scene.answers({"#32", "NUMBER", "", "X"});
  EXPECT_FALSE(scene.run("ReplaceTag").failure);
  EXPECT_THAT((Answers{value("30F"), value("31F"), value("32F")}), ElementsAre("X", "X", "D1"));
}

TEST(ReplaceTag, ACancelledQuestionOrNoTagEndsItQuietly) {
  Scene scene(door_lines("30", "NUMBER", "D1") + lines({"34", "D1"}));
  for (const Answers& answers :
       {Answers{"^C"}, {"#30", ""}, {"#30", "NUMBER", "^C", "X"}, {"#30", "NUMBER", "", "^C"}}) {
    scene.answers(answers);
    EXPECT_FALSE(scene.run("ReplaceTag").failure);
    EXPECT_THAT(scene.said(), IsEmpty());
  }
  scene.answers({"#34", "NUMBER", "", "X"});
  EXPECT_FALSE(scene.run("ReplaceTag").failure);
  EXPECT_THAT(scene.said(), ElementsAre("\r\nTag {NUMBER} Replaced 0 found", ready_again));
  EXPECT_FALSE(scene.drawing().is_changed());
}

}  // namespace
}  // namespace velmar
