// What a drawing may ask for that no picture can show: bounded, and told.

#include <gmock/gmock.h>

#include "render/recording_painter.h"

namespace velmar::render {
namespace {

using testing::Contains;
using testing::HasSubstr;

std::string dashed(double dash) {
  return " 0 LTYPE 100 AcDbSymbolTableRecord 100 AcDbLinetypeTableRecord 2 Dashed 70 0 73 2 49 " +
         std::to_string(dash) + " 49 " + std::to_string(-dash);
}

TEST(Hostile, ABlockWithinItselfIsDrawnOnce) {
  SceneText text;
  text.layers = layer("0", 7);
  text.blocks = block("A", line(10, 0, "8 0") + insert("B", "8 0") + insert("B", "8 0")) +
                block("B", insert("A", "8 0") + insert("A", "8 0"));
  text.entities = insert("A", "8 0") + line(10, 5, "8 0");
  const drawing::Drawing drawing = text.read();
  Scene scene(drawing, {});
  EXPECT_EQ(painted(scene).strokes.size(), 2u);
  EXPECT_THAT(scene.warnings(), Contains(HasSubstr("perhaps in themselves")));
}

TEST(Hostile, LinesOfTooManyDashesAreDrawnThroughAndToldOf) {
  SceneText text;
  text.layers = layer("0", 7);
  text.linetypes = dashed(1);
  text.entities = line(1e6, 0, "8 0 6 Dashed") + line(100, 5, "8 0 6 Dashed");
  for (int i = 0; i < 100; ++i) text.entities += line(90'000, 9, "8 0 6 Dashed");
  const drawing::Drawing drawing = text.read();
  Scene scene(drawing, {});
  RecordingPainter painter;
  scene.draw(drawing::SpaceId::model, {painter, {0, -10, 1e6, 10}, drawing::Matrix{}});
  EXPECT_EQ(painter.strokes[0].chain.size(), 2u);
  EXPECT_GT(painter.strokes.size(), 2'000'000u);
  EXPECT_LT(painter.strokes.size(), 3'000'000u);
  EXPECT_THAT(scene.warnings(), Contains(HasSubstr("lines drawn through")));
}

TEST(Hostile, WhatReachesTooFarToCountIsDrawnWithoutItsPattern) {
  SceneText text;
  text.layers = layer("0", 7);
  text.linetypes = dashed(1);
  text.entities =
      " 0 LINE 100 AcDbEntity 8 0 6 Dashed 100 AcDbLine 10 -1e17 20 0 11 1e17 21 0"
      " 0 ELLIPSE 100 AcDbEntity 8 0 100 AcDbEllipse 10 0 20 0 11 5 21 0 40 0.5 41 0 42 1e9";
  const RecordingPainter painter = painted(text.read());
  ASSERT_EQ(painter.strokes.size(), 2u);
  EXPECT_EQ(painter.strokes[0].chain.size(), 2u);
  EXPECT_LT(painter.strokes[1].chain.size(), 1000u);
}

}  // namespace
}  // namespace velmar::render
