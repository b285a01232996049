// What needs kinds of entities that hosts treat differently: multi-line texts, tolerance frames.

#include <gmock/gmock.h>

#include "basic/conversion.h"
#include "component/velmar16.h"
#include "failure_of.h"
#include "fake_host.h"

namespace velmar {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class TextCommands : public testing::Test {
 protected:
  std::string content(const Bag& text) {
    return host.document.has(text) ? basic::text(text->get(Member::TextString)) : "deleted";
  }

  FakeHost host;
};

TEST_F(TextCommands, LetterCaseChangesInTheLastPieceOfAMultiLineText) {
  const std::pair<const char*, const char*> cases[] = {{"abcX;def", "abcX;DEF"}, {"abc", "ABC"},
                                                       {"aX;bX;c", "aX;bX;C"},   {"aX;", "aX;"},
                                                       {"\\H2x;ab", "\\H2X;AB"}, {"", ""}};
  for (const auto& [before, after] : cases) {
    const Bag text = host.document.add_text("AcDbMText", before);
    host.document.picks = {text};
    host.document.answers = {""};
    EXPECT_EQ(failure_number([] { Velmar16().ChangeLetterCase(); }), 0);
    EXPECT_EQ(content(text), after);
  }
}

TEST_F(TextCommands, InAMultiLineTextOnlyWhatIsReadIsReplaced) {
  struct Case {
    const char *content, *old_text, *new_text;
    bool first, whole;
    const char* after;
  };
  const Case cases[] = {
      {"{\\fArial|b0;A door}\\Pdoor", "door", "gate", false, false, "{\\fArial|b0;A gate}\\Pgate"},
      {"{\\fArial|b0;A door}\\Pdoor", "door", "gate", true, false, "{\\fArial|b0;A gate}\\Pdoor"},
      {"a\\Pa a", "a", "b", true, false, "b\\Pa a"},
      {"\\fdoor;\\H2.5x;\\Sdoor^x\\;door;\\~", "door", "x", false, false,
       "\\fdoor;\\H2.5x;\\Sdoor^x\\;door;\\~"},
      {"do\\Lor\\P", "door", "x", false, false, "do\\Lor\\P"},
      {"a\\Pb", "P", "x", false, false, "a\\Pb"},
      {"a\\\\Pb", "\\P", "{", false, false, "a\\{b"},
      {"\\{a\\}", "{a}", "\\", false, false, "\\\\"},
      {"caf\\U+00E9 \\U+00E9", "caf\u00E9", "bar", false, false, "bar \\U+00E9"},
      {"{\\C1;door}", "door", "gate", false, true, "{\\C1;gate}"},
      {"{\\C1;door} 2", "door", "gate", false, true, "{\\C1;door} 2"},
      {"door\\Pdoor", "door", "gate", false, true, "door\\Pdoor"},
      {"{\\C1;door}\\P", "door", "", false, false, "deleted"},
      {"door \\S1/2;", "door ", "", false, false, "\\S1/2;"},
      {"ends in \\", "\\", "x", false, false, "ends in x"},
      {"\\fnever ends", "never", "x", false, false, "\\fnever ends"},
      {"\\Sa\\", "a", "x", false, false, "\\Sa\\"},
  };
  for (const Case& tried : cases) {
    const Bag text = host.document.add_text("AcDbMText", tried.content, "A");
    std::string old_text = tried.old_text, new_text = tried.new_text, layer = "A";
    bool first = tried.first, whole = tried.whole;
    Velmar16().ReplaceInT(old_text, new_text, layer, first, whole);
    EXPECT_EQ(content(text), tried.after) << tried.content;
    text->properties[Member::Layer] = "done";
  }
}

TEST_F(TextCommands, ToleranceFramesArePlacedUntilTheUserStops) {
  const Value one = basic::Doubles{1, 2, 0}, two = basic::Doubles{3, 4, 5};
  host.document.answers = {"0.1%%vA", one, two};
  Velmar16().Tolerencee();
  ASSERT_EQ(host.document.entities.size(), 2u);
  EXPECT_EQ(content(host.document.entities[0]), "0.1%%vA");
  EXPECT_EQ(host.document.entities[0]->get(Member::InsertionPoint), one);
  EXPECT_EQ(host.document.entities[1]->get(Member::InsertionPoint), two);
  EXPECT_EQ(host.document.entities[1]->get(Member::DirectionVector),
            Value(basic::Doubles{1, 0, 0}));
  EXPECT_THAT(host.document.asked,
              ElementsAre("\r\nEnter Tolerance Text: ", "\r\nInsertion point: ",
                          "\r\nInsertion point: ", "\r\nInsertion point: "));
  EXPECT_THAT(host.document.said, IsEmpty());

  host.document.answers = {""};
  Velmar16().Tolerencee();
  EXPECT_EQ(host.document.asked.size(), 5u);

  host.document.answers = {"A", one, two};
  host.document.refuses_additions = true;
  Velmar16().Tolerencee();
  EXPECT_EQ(host.document.answers.size(), 1u);
  EXPECT_THAT(host.document.said, ElementsAre("\r\nAutocad Ready."));
}

}  // namespace
}  // namespace velmar
