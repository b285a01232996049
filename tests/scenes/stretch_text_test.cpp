#include <gmock/gmock.h>

#include "scenes/entity_lines.h"
#include "scenes/scene.h"

namespace velmar {
namespace {

using basic::LeftOut;
using host::Text;
using testing::ElementsAre;
using testing::IsEmpty;

class StrechText : public testing::Test {
 protected:
  double factor(const char* handle) const { return scene.entity<Text>(handle).ScaleFactor(); }
  double width(const char* handle) const {
    const host::Box box = scene.entity<Text>(handle).GetBoundingBox();
    return box.max.x - box.min.x;
  }
  double height(const char* handle) const {
    const host::Box box = scene.entity<Text>(handle).GetBoundingBox();
    return box.max.y - box.min.y;
  }

  Scene scene{lines({"30", "HEADROOM"}) + lines({"31", "HEADROOM"}) +
              lines({"32", "HEADROOM", "Locked"}) + lines({"33", "HEADROOM", "0", "180"}) +
              lines({"34", "HEADROOM", "0", "90"}) + circle_lines("35")};
};

const char* const ask_text = "\r\nSelect Text or Distance";
const char* const ask_first = "\r\nFirst point: ";
const char* const ask_second = "\r\nSecond point: ";

TEST_F(StrechText, StopsAtTheFirstHundredthBehindTheLength) {
  const double target = 1.205 * width("30");
  EXPECT_FALSE(scene.run("StrechText", "30", target, true).failure);
  EXPECT_NEAR(factor("30"), 1.21, 1e-12);
  EXPECT_FALSE(scene.run("StrechText", "30", 0.895 * width("31")).failure);
  EXPECT_NEAR(factor("30"), 0.89, 1e-12);
  EXPECT_FALSE(scene.run("StrechText", "31", width("31")).failure);
  EXPECT_NEAR(factor("31"), 0.99, 1e-12) << "as long as wanted: made shorter by a step";
  EXPECT_THAT(scene.asked(), IsEmpty());
  EXPECT_THAT(scene.said(), IsEmpty());
}

TEST_F(StrechText, ATurnedTextIsMeasuredByTheHeightOfItsBox) {
  EXPECT_FALSE(scene.run("StrechText", "34", 1.105 * height("34")).failure);
  EXPECT_NEAR(factor("34"), 1.11, 1e-12);
}

TEST_F(StrechText, GoesOnCountingFromTextToText) {
  scene.answers({"#30", "#31"});
  EXPECT_FALSE(scene.run("StrechText", LeftOut{}, 1.205 * width("30")).failure);
  EXPECT_NEAR(factor("30"), 1.21, 1e-12);
  EXPECT_NEAR(factor("31"), 1.22, 1e-12);
  EXPECT_THAT(scene.asked(), ElementsAre(ask_text, ask_text, ask_text));
  EXPECT_THAT(scene.said(), IsEmpty());
}

TEST_F(StrechText, AsksForTheLengthAsTwoPointsAndRoundsIt) {
  const auto answers = [&](double apart) {
    scene.answers({"#30", "0,0", std::to_string(apart) + ",0", "#31", "^C"});
  };
  const double whole = std::floor(width("30"));
  answers(whole + 4.5);  // to the even number on one side or the other
  EXPECT_FALSE(scene.run("StrechText").failure);
  const double target = std::fmod(whole + 4, 2) == 0 ? whole + 4 : whole + 5;
  EXPECT_GT(width("30"), target);
  EXPECT_LT(width("30"), target + 0.02 * width("31"));
  EXPECT_EQ(factor("31"), 1);
  EXPECT_THAT(scene.asked(), ElementsAre(ask_text, ask_first, ask_second, ask_text, ask_first));
  EXPECT_THAT(scene.said(), IsEmpty());
}

TEST_F(StrechText, AHeightBetweenThePointsShiftsTheFactors) {
  scene.answers({"#30", "0,0,0", "1000,0,100000"});
  EXPECT_FALSE(scene.run("StrechText").failure);
  EXPECT_NEAR(factor("30"), 1001.01, 1e-9);
}

TEST_F(StrechText, APickThatIsNoTextChangesNothingAndEndsItWithTheClosingPrompt) {
  scene.answers({"#35", "#30"});
  EXPECT_FALSE(scene.run("StrechText", LeftOut{}, 1000.0).failure);
  EXPECT_THAT(scene.said(), ElementsAre("\r\nAutocad Ready."));
  EXPECT_EQ(scene.answers_left(), 1u);
  EXPECT_FALSE(scene.run("StrechText", "35", 1000.0).failure);
  EXPECT_THAT(scene.said(), ElementsAre("\r\nAutocad Ready.")) << "nothing for both arguments";
  EXPECT_FALSE(scene.drawing().is_changed());
}

TEST_F(StrechText, EndsWhereStepsWouldNeverComeToAnEnd) {
  scene.answers({"#32"});
  EXPECT_FALSE(scene.run("StrechText", LeftOut{}, 1000.0).failure);
  EXPECT_EQ(factor("32"), 1) << "on a locked layer";
  EXPECT_THAT(scene.said(), ElementsAre("\r\nAutocad Ready."));

  EXPECT_FALSE(scene.run("StrechText", "33", 1000.0).failure);
  EXPECT_LT(factor("33"), 1.03) << "as high as before at any factor";
  EXPECT_FALSE(scene.run("StrechText", "30", -1.0).failure);
  EXPECT_NEAR(factor("30"), 0.01, 1e-12) << "the last factor before 0";
}

}  // namespace
}  // namespace velmar
