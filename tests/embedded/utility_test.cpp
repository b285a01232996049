#include "embedded/utility.h"

#include <numbers>

#include "embedded/host_scene.h"

namespace velmar::embedded {
namespace {

using std::numbers::pi;

TEST(GetEntity, TakesWhatTheAnswerPointsAt) {
  const std::pair<const char*, const char*> rows[] = {
      {"#31", "31"},     {"(handent \"32\")", "32"},
      {"#35", "34"},      // an attribute stands for its block reference
      {"#33", "33"},      // by handle also where it cannot be seen
      {"50,0.4", "30"},   // within the pick box, whose half side is 0.5
      {"0,0.4", "37"},    // of two the one drawn last
      {"60,50", "31"},    // on the circle's outline
      {"15,82", "32"},    // inside a text
      {"90.5,90", "34"},  // on a line in the block
      {"L", "37"},
  };
  for (const auto& [answer, handle] : rows) {
    HostScene scene({answer});
    EXPECT_EQ(scene.utility().GetEntity("Select").Handle(), handle) << answer;
  }
}

TEST(GetEntity, FailsOnNothingOnEnterAndOnEscape) {
  for (const char* answer : {"50,50", "50,0.6", "50,20", "", "^C"}) {
    HostScene scene({answer, "#30"});
    EXPECT_EQ(failure_of([&] { scene.utility().GetEntity("Select"); }), cancelled_number) << answer;
    EXPECT_EQ(scene.user.left(), 1u) << answer;
  }
}

TEST(GetEntity, AsksAgainWhereTheAnswerIsNoEntity) {
  HostScene scene({"#999", "wall", "#10", "#23", "#30"});
  EXPECT_EQ(scene.utility().GetEntity("Select").Handle(), "30");
  EXPECT_EQ(scene.said().size(), 4u);
  EXPECT_EQ(scene.said()[0], "\r\nThere is no object #999.");
}

TEST(GetEntity, WritesThePickedPointAndLeavesItsArgumentsAloneOnFailure) {
  HostScene scene({"50,0.25", "50,50"});
  Value entity, point;
  scene.utility().call(Member::GetEntity, entity, point, "Select");
  EXPECT_EQ(point, Value(basic::Doubles{50, 0.25, 0}));
  EXPECT_NE(failure_of([&] { scene.utility().call(Member::GetEntity, entity, point); }), 0);
  EXPECT_EQ(point, Value(basic::Doubles{50, 0.25, 0}));
  EXPECT_TRUE(entity.is<basic::Reference>());
}

TEST(Utility, SaysWhichQuestionHadNoAnswerLeft) {
  HostScene scene;
  try {
    scene.utility().GetReal("\r\nEnter Rotation Angle: ");
    FAIL();
  } catch (const basic::Failure& failure) {
    EXPECT_EQ(failure.number, cancelled_number);
    EXPECT_EQ(
        failure.description,
        "Method 'GetReal' of object 'IAcadUtility' failed: no answer is left for the question "
        "\"Enter Rotation Angle:\", which asks for a number");
  }
  scene.answers({"^C"});
  try {
    scene.utility().GetReal("Enter");
    FAIL();
  } catch (const basic::Failure& failure) {
    EXPECT_EQ(failure.description, "Method 'GetReal' of object 'IAcadUtility' failed");
  }
}

// Every question: Escape cancels it; Enter is a keyword that GetInput reads as nothing.
TEST(Utility, EscapeAndEnterAtEveryQuestion) {
  struct Row {
    Member member;
    std::vector<Value> arguments;
    std::int32_t on_enter;
  };
  const Value origin = at(0, 0);
  const Row rows[] = {
      {Member::GetPoint, {}, keyword_number},
      {Member::GetCorner, {origin}, keyword_number},
      {Member::GetDistance, {}, keyword_number},
      {Member::GetAngle, {}, keyword_number},
      {Member::GetOrientation, {}, keyword_number},
      {Member::GetReal, {}, keyword_number},
      {Member::GetInteger, {}, keyword_number},
      {Member::GetString, {1}, 0},
      {Member::GetKeyword, {}, 0},
  };
  for (const Row& row : rows) {
    HostScene scene({"^C", ""});
    const auto ask = [&] {
      auto arguments = row.arguments;
      return scene.utility().object()->call(row.member, arguments);
    };
    EXPECT_EQ(failure_of(ask), cancelled_number) << host::spelling(row.member);
    EXPECT_EQ(failure_of(ask), row.on_enter) << host::spelling(row.member);
    EXPECT_EQ(scene.utility().call(Member::GetInput), Value("")) << host::spelling(row.member);
  }
}

TEST(Utility, AsksAgainUntilANumberIsGiven) {
  HostScene scene({"ten", "1-1/2", "1.5", "40000", "7"});
  EXPECT_EQ(scene.utility().GetReal("Real"), 1.5);
  EXPECT_EQ(scene.utility().call(Member::GetInteger, "Integer"), Value(std::int16_t{7}));
  const Transcript expected{
      Asked{"Real", "ten"},
      Said{"\r\nRequires a number, such as 12, 1.5e3 or 1-1/2."},
      Asked{"Real", "1-1/2"},
      Asked{"Integer", "1.5"},
      Said{"\r\nRequires an integer from -32768 to 32767."},
      Asked{"Integer", "40000"},
      Said{"\r\nRequires an integer from -32768 to 32767."},
      Asked{"Integer", "7"},
  };
  EXPECT_EQ(scene.user.transcript(), expected);
}

TEST(Utility, PointsAreRelativeToTheBaseOrTheLastPoint) {
  HostScene scene({"10,20", "@5<90", "@1,1", "@1,1"});
  const host::Utility utility = scene.utility();
  EXPECT_EQ(utility.GetPoint("First"), (host::Point{10, 20, 0}));
  EXPECT_NEAR(utility.GetPoint("From the last one").y, 25, 1e-9);
  EXPECT_EQ(utility.GetPoint({100, 100, 7}, "From a base"), (host::Point{101, 101, 7}));
  const Value corner = utility.call(Member::GetCorner, host::Point{1, 2, 0}, "Corner");
  EXPECT_EQ(corner, at(2, 3));
  EXPECT_EQ(scene.document().call(Member::GetVariable, "LASTPOINT"), at(2, 3));
}

TEST(Utility, MeasuresFromTheBaseOrBetweenTwoPoints) {
  HostScene scene({"2.5", "3,4", "1,1", "@0,2", "90", "0,-5", "1,1", "@-1,0", "0,7"});
  const host::Utility utility = scene.utility();
  const host::Point origin{};
  const auto measure = [&](Member member, auto... arguments) {
    return basic::convert<double>(utility.call(member, arguments...));
  };
  EXPECT_EQ(measure(Member::GetDistance), 2.5);
  EXPECT_EQ(measure(Member::GetDistance, origin, "To"), 5);
  EXPECT_EQ(measure(Member::GetDistance), 2);
  EXPECT_NEAR(measure(Member::GetAngle), pi / 2, 1e-12);
  EXPECT_NEAR(measure(Member::GetAngle, origin), 1.5 * pi, 1e-12);
  EXPECT_NEAR(measure(Member::GetAngle), pi, 1e-12);
  EXPECT_NEAR(measure(Member::GetOrientation, origin), pi / 2, 1e-12);
  EXPECT_EQ(scene.user.left(), 0u);
}

TEST(Utility, RefusesWhatTheBitsForbidForOneQuestionOnly) {
  HostScene scene({"", "0", "-1", "2", "-1"});
  const host::Utility utility = scene.utility();
  utility.InitializeUserInput(1 + 2 + 4, "");
  EXPECT_EQ(utility.GetReal("Real"), 2);
  EXPECT_EQ(scene.said().size(), 3u);
  EXPECT_EQ(utility.GetReal("Real"), -1);

  scene.answers({"1,1", "1,1", "4,5"});
  utility.InitializeUserInput(2, "");
  EXPECT_EQ(utility.call(Member::GetDistance), Value(5.0));  // also between points
}

TEST(Utility, KeywordsInPlaceOfAValue) {
  HostScene scene({"lt", "7", "undo", "L", "anything"});
  const host::Utility utility = scene.utility();
  utility.InitializeUserInput(0, "LType Undo");
  EXPECT_EQ(failure_of([&] { utility.GetReal("Real"); }), keyword_number);
  EXPECT_EQ(utility.call(Member::GetInput), Value("LType"));

  utility.InitializeUserInput(0, "LType Undo");
  EXPECT_EQ(utility.GetReal("Real"), 7);
  EXPECT_EQ(utility.call(Member::GetInput), Value(""));

  utility.InitializeUserInput(0, "LType Undo");
  EXPECT_EQ(failure_of([&] { utility.GetPoint("Point"); }), keyword_number);
  EXPECT_EQ(utility.call(Member::GetInput), Value("Undo"));

  utility.InitializeUserInput(0, "L");  // stands before the last entity
  EXPECT_EQ(failure_of([&] { utility.GetEntity("Select"); }), keyword_number);

  utility.InitializeUserInput(128, "");
  EXPECT_EQ(failure_of([&] { utility.GetReal("Real"); }), keyword_number);
  EXPECT_EQ(utility.call(Member::GetInput), Value("anything"));
}

TEST(GetKeyword, AcceptsOnlyTheListedWords) {
  HostScene scene({"Upper", "u", "", "", "l"});
  const host::Utility utility = scene.utility();
  utility.InitializeUserInput(0, "U L T I");
  EXPECT_EQ(utility.GetKeyword("Case"), "U");
  EXPECT_EQ(scene.said(), std::vector<std::string>{"\r\nRequires one of: U, L, T or I."});
  utility.InitializeUserInput(0, "U L T I");
  EXPECT_EQ(utility.GetKeyword("Case"), "");
  utility.InitializeUserInput(1, "U L T I");
  EXPECT_EQ(utility.GetKeyword("Case"), "L");
}

TEST(GetString, ABlankEndsItUnlessBlanksAreAllowed) {
  HostScene scene({" two words ", "two words", "LT"});
  const host::Utility utility = scene.utility();
  EXPECT_EQ(utility.GetString(true, "Text"), " two words ");
  EXPECT_EQ(utility.GetString(false, "Text"), "two");
  utility.InitializeUserInput(1, "LType");
  EXPECT_EQ(utility.GetString(true, "Text"), "LT");  // no keyword here
}

TEST(Utility, RefusesArgumentsOfTheWrongKindWithoutAsking) {
  HostScene scene({"1,1"});
  const host::Utility utility = scene.utility();
  const std::int32_t invalid = -2145320939, wrong_count = -2145320944;
  EXPECT_EQ(failure_of([&] { utility.call(Member::GetPoint, "Prompt"); }), invalid);
  EXPECT_EQ(failure_of([&] { utility.call(Member::GetPoint, basic::Doubles{1, 2}); }), wrong_count);
  EXPECT_EQ(failure_of([&] { utility.call(Member::GetCorner); }), basic::argument_not_optional);
  EXPECT_EQ(scene.user.left(), 1u);
}

TEST(Utility, IsDisconnectedOnceTheDrawingIsClosed) {
  HostScene scene({"1"});
  const host::Utility utility = scene.utility();
  scene.document().Close(false);
  EXPECT_EQ(failure_of([&] { utility.GetReal("Real"); }), -2147417848);
}

}  // namespace
}  // namespace velmar::embedded
