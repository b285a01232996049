#include <gmock/gmock.h>

#include "basic/conversion.h"
#include "scenes/scene.h"

namespace velmar {
namespace {

using basic::Value;
using embedded::head;
using testing::ElementsAre;

TEST(Scenes, TotalLengthOfAPickedLayer) {
  Scene scene(head("LINE", "30", "Walls") + "100 AcDbLine\n10 0\n20 0\n30 0\n11 3\n21 4\n31 0\n" +
              head("LINE", "31") + "100 AcDbLine\n10 0\n20 0\n30 0\n11 7\n21 0\n31 0\n");
  scene.answers({"#30"});
  const Outcome outcome = scene.run("GetTotalLength");
  EXPECT_FALSE(outcome.failure);
  EXPECT_TRUE(outcome.result.is<basic::Empty>());
  EXPECT_THAT(scene.asked(), ElementsAre("\r\nSelect Layer"));
  EXPECT_THAT(scene.said(), ElementsAre("\r\nTotal Length For Lines & Arcs On Layer: Walls Is: 5"));

  scene.answers({"^C"});
  EXPECT_EQ(scene.run("GetTotalLength").failure->number, -2147352567);
  EXPECT_THAT(scene.said(), testing::IsEmpty());
}

TEST(Scenes, WhatAMethodWroteIsInTheArguments) {
  Scene scene(head("CIRCLE", "31") + "100 AcDbCircle\n10 5\n20 5\n30 0\n40 1\n");
  const Outcome rounded = scene.run("RUP", 10.6, 5.0);
  EXPECT_EQ(rounded.result, Value(15.0));
  EXPECT_EQ(basic::number(rounded.arguments[0]), 11);
  EXPECT_EQ(scene.run("RDN", std::int32_t{11}, 0.0).failure->number, basic::division_by_zero);
}

}  // namespace
}  // namespace velmar
