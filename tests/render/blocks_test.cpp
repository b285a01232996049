// Block references, dimensions and viewports: what is drawn through them, and where.

#include <gmock/gmock.h>

#include "render/recording_painter.h"

namespace velmar::render {
namespace {

TEST(References, PlaceNestedBlocksScaledAndRepeated) {
  SceneText text;
  text.layers = layer("0", 7);
  text.blocks = block("In", line(10, 0, "8 0")) +
                block("Out", insert("In", "8 0", "10 100 20 0 41 2 42 -3 50 90"));
  text.entities = insert("Out", "8 0", "10 1000 20 1000 70 3 71 2 44 50 45 200");
  const RecordingPainter painter = painted(text.read());
  ASSERT_EQ(painter.strokes.size(), 6u);
  const Window first = window_of(painter.strokes[0].chain);
  EXPECT_NEAR(first.left, 1100, 1e-9);
  EXPECT_NEAR(first.high, 1020, 1e-9);
  EXPECT_NEAR(painter.all.right, 1200, 1e-9);
  EXPECT_NEAR(painter.all.high, 1220, 1e-9);
}

TEST(References, OutsideTheWindowOrSmallerThanAPixelTakeNoWork) {
  SceneText text;
  text.layers = layer("0", 7);
  text.blocks = block("B", line(10, 0, "8 0") + line(10, 5, "8 0"));
  text.entities =
      insert("B", "8 0", "10 500 20 500") + insert("B", "8 0", "10 5 20 5 41 0.01 42 0.01");
  const drawing::Drawing drawing = text.read();
  Scene scene(drawing, {});
  const RecordingPainter painter = painted(scene, drawing::SpaceId::model, {0, 0, 20, 20});
  ASSERT_EQ(painter.strokes.size(), 1u);
  EXPECT_EQ(painter.strokes[0].chain.size(), 1u);  // a dot
}

TEST(References, ThatNeverEndAreBounded) {
  SceneText text;
  text.layers = layer("0", 7);
  text.blocks = block("Loop", line(10, 0, "8 0") + insert("Loop", "8 0"));
  std::string below = "Loop";
  for (int level = 0; level < 9; ++level) {
    const std::string name = "Level" + std::to_string(level);
    text.blocks += block(name, insert(below, "8 0", "10 0 20 0 70 30 71 30 44 1 45 1"));
    below = name;
  }
  text.entities = insert(below, "8 0");
  const drawing::Drawing drawing = text.read();
  SettingOptions options;
  options.most_entities = 20'000;
  Scene scene(drawing, options);
  EXPECT_LE(painted(scene).strokes.size(), 20'000u);
  EXPECT_THAT(scene.warnings(), testing::Contains(testing::HasSubstr("not all is drawn")));
}

TEST(References, NestedVeryDeeplyAreCutOff) {
  SceneText text;
  text.layers = layer("0", 7);
  text.blocks = block("B0", line(10, 0, "8 0"));
  for (int level = 1; level < 2'000; ++level) {
    text.blocks += block("B" + std::to_string(level),
                         insert("B" + std::to_string(level - 1), "8 0") + line(5, 0, "8 0"));
  }
  text.entities = insert("B1999", "8 0");
  const drawing::Drawing drawing = text.read();
  Scene scene(drawing, {});
  EXPECT_EQ(scene.extents(drawing::SpaceId::model).max.x, 5);
  EXPECT_EQ(painted(scene).strokes.size(), 64u);
  EXPECT_THAT(scene.warnings(), testing::Contains(testing::HasSubstr("nested too deeply")));
}

TEST(References, ShowAttributesAndNotTheirDefinitions) {
  const std::string tail = " 100 AcDbText 10 0 20 0 40 10 1 AB 100 ";
  SceneText text;
  text.layers = layer("0", 7) + layer("Off", -7);
  text.blocks = block(
      "B", " 0 ATTDEF 100 AcDbEntity 8 0" + tail + "AcDbAttributeDefinition 3 Ask 2 TAG 70 0");
  const auto attribute = [&](int flags, const std::string& layer) {
    return insert("B", "8 " + layer, "66 1 10 0 20 0") + " 0 ATTRIB 100 AcDbEntity 8 0" + tail +
           "AcDbAttribute 2 TAG 70 " + std::to_string(flags) + " 0 SEQEND 100 AcDbEntity 8 0";
  };
  text.entities = insert("B", "8 0");
  EXPECT_TRUE(painted(text.read()).strokes.empty());
  text.entities = attribute(1, "0") + attribute(0, "Off");
  EXPECT_TRUE(painted(text.read()).strokes.empty());
  text.entities = attribute(0, "0");
  const std::size_t strokes = painted(text.read()).strokes.size();
  EXPECT_GE(strokes, 4u);
  // In an array each cell has them.
  text.entities.replace(text.entities.find("66 1"), 4, "66 1 70 3 71 2 44 50 45 20");
  const RecordingPainter array = painted(text.read());
  EXPECT_EQ(array.strokes.size(), 6 * strokes);
  EXPECT_NEAR(array.all.high, 30, 1e-9);
}

TEST(Dimensions, ShowTheirBlockWithItsPointsAsDots) {
  SceneText text;
  text.header = "9 $PDMODE 70 35 9 $PDSIZE 40 4";
  text.layers = layer("0", 7);
  text.blocks =
      block("*D1", line(10, 0, "8 0 62 0") + " 0 POINT 100 AcDbEntity 8 0 100 AcDbPoint 10 0 20 0");
  text.entities =
      " 0 DIMENSION 100 AcDbEntity 8 0 62 3 100 AcDbDimension 2 *D1 10 0 20 0 11 5 21 "
      "0 12 7 22 0 70 33 100 AcDbAlignedDimension 13 0 23 0 14 10 24 0";
  const RecordingPainter painter = painted(text.read());
  ASSERT_EQ(painter.strokes.size(), 2u);
  EXPECT_EQ(painter.strokes[0].ink.color, (Color{0, 255, 0}));
  EXPECT_EQ(painter.strokes[0].chain.back().x, 17);
  EXPECT_EQ(painter.strokes[1].chain.size(), 1u);
}

TEST(Viewports, ShowModelSpaceAtTheirScaleWithinTheirBorder) {
  SceneText text;
  text.layers = layer("0", 7) +
                " 0 LAYER 5 77 100 AcDbSymbolTableRecord 100 AcDbLayerTableRecord "
                "2 Hidden 70 0 62 1 6 Continuous";
  text.entities =
      line(1000, 0, "8 0") + line(1000, 1, "8 Hidden") +
      " 0 VIEWPORT 100 AcDbEntity 8 0 67 1 100 AcDbViewport 10 0 20 0 40 900 41 900 68 1 69 1 45 "
      "900"
      " 0 VIEWPORT 100 AcDbEntity 8 0 67 1 100 AcDbViewport 10 200 20 100 40 100 41 50 68 2 69 2 "
      "12 500 22 0 45 500 16 0 26 0 36 1 331 77";
  const drawing::Drawing drawing = text.read();
  const auto paper = drawing.find_space("*Paper_Space");
  ASSERT_TRUE(paper);
  Scene scene(drawing, {});
  const drawing::Box box = scene.extents(*paper);
  EXPECT_EQ(box.min, (Point{150, 75, 0}));
  EXPECT_EQ(box.max, (Point{250, 125, 0}));
  const RecordingPainter painter = painted(scene, *paper);
  ASSERT_EQ(painter.strokes.size(), 2u);  // the line that is not frozen, and the border
  const Window shown = window_of(painter.strokes[0].chain);
  EXPECT_EQ(painter.strokes[0].clips, 1);
  EXPECT_NEAR(shown.left, 150, 1e-9);
  EXPECT_NEAR(shown.right, 250, 1e-9);
  EXPECT_NEAR(shown.low, 100, 1e-9);
  EXPECT_EQ(painter.clips.at(0).left, 150);
  EXPECT_EQ(painter.strokes[1].clips, 0);
}

TEST(Kinds, ThatAreNotUnderstoodAreToldByName) {
  SceneText text;
  text.layers = layer("0", 7);
  text.entities =
      " 0 3DSOLID 100 AcDbEntity 8 0 0 3DSOLID 100 AcDbEntity 8 0 0 LIGHT 100 "
      "AcDbEntity 8 0";
  const drawing::Drawing drawing = text.read();
  Scene scene(drawing, {});
  painted(scene);
  EXPECT_THAT(scene.warnings(),
              testing::ElementsAre(testing::HasSubstr("2 3DSOLID"), testing::HasSubstr("1 LIGHT")));
}

}  // namespace
}  // namespace velmar::render
