// Colours, layers, linetypes and lineweights: what entities, layers and block references give.

#include <gmock/gmock.h>

#include "render/recording_painter.h"

namespace velmar::render {
namespace {

using testing::DoubleNear;
using testing::ElementsAre;

constexpr Color red{255, 0, 0}, green{0, 255, 0}, blue{0, 0, 255}, black{0, 0, 0},
    white{255, 255, 255};

std::vector<Color> colors(const RecordingPainter& painter) {
  std::vector<Color> list;
  for (const auto& stroke : painter.strokes) list.push_back(stroke.ink.color);
  return list;
}

TEST(Colors, AreOfTheEntityTheLayerOrTheReference) {
  SceneText text;
  text.layers = layer("0", 7) + layer("Red", 1) + layer("True", 1, 0, "6 Continuous 420 255");
  text.blocks = block("B", line(9, 0, "8 0") + line(9, 1, "8 0 62 0") + line(9, 2, "8 Red 62 256"));
  text.entities = line(9, 0, "8 Red") + line(9, 1, "8 Red 62 3") + line(9, 2, "8 Red 420 255") +
                  line(9, 3, "8 True") + line(9, 4, "8 0") + insert("B", "8 True 62 3");
  const drawing::Drawing drawing = text.read();
  EXPECT_THAT(colors(painted(drawing)),
              ElementsAre(red, green, blue, blue, black, blue, green, red));
  SettingOptions dark;
  dark.background = Background::dark;
  EXPECT_EQ(painted(drawing, dark).strokes[4].ink.color, white);
}

TEST(Layers, OffAndFrozenOnesAreNotDrawn) {
  SceneText text;
  text.layers = layer("0", 7) + layer("Off", -1) + layer("Frozen", 2, 1) + layer("On", 3);
  text.blocks = block("B", line(9, 0, "8 On") + line(9, 1, "8 0") + line(9, 2, "8 Frozen"));
  text.entities = line(9, 0, "8 Off") + line(9, 0, "8 Frozen") + line(9, 0, "8 On 60 1");
  EXPECT_TRUE(painted(text.read()).strokes.empty());
  // Of a reference on a layer that is off stays what is on other layers, of a frozen one nothing.
  text.entities = insert("B", "8 Off") + insert("B", "8 Frozen");
  EXPECT_THAT(colors(painted(text.read())), ElementsAre(green));
  // What is not seen takes no room.
  text.blocks = block("B", line(9, 0, "8 0"));
  text.entities += line(5, 0, "8 Off");
  const drawing::Drawing drawing = text.read();
  EXPECT_TRUE(Scene(drawing, {}).extents(drawing::SpaceId::model).empty());
  SettingOptions all;
  all.all_layers = true;
  EXPECT_EQ(painted(drawing, all).strokes.size(), 3u);
}

TEST(Linetypes, LayOutTheirDashesFromBothEndsAlike) {
  SceneText text;
  text.header = "9 $LTSCALE 40 2";
  text.linetypes =
      "0 LTYPE 100 AcDbLinetypeTableRecord 2 Dash 70 0 3 @ 72 65 73 2 40 15 49 10 74 0 49 -5 74 0";
  text.layers = layer("0", 7) + layer("D", 7, 0, "6 Dash");
  // The scales make 10 drawn, 5 left out. 100 is six turns of 15 and 10 more: 10 at either end.
  text.entities = line(100, 0, "8 D 48 0.5");
  std::vector<double> ends;
  for (const auto& stroke : painted(text.read()).strokes) {
    ends.push_back(stroke.chain.front().x);
    ends.push_back(stroke.chain.back().x);
  }
  EXPECT_THAT(ends, testing::Pointwise(testing::DoubleNear(1e-9),
                                       {0, 10, 15, 25, 30, 40, 45, 55, 60, 70, 75, 85, 90, 100}));
  // 104 leaves 14: the end dashes are longer than the others, 12 each.
  text.entities = line(104, 0, "8 D 48 0.5");
  const RecordingPainter longer = painted(text.read());
  EXPECT_NEAR(longer.strokes.front().chain.back().x, 12, 1e-9);
  EXPECT_NEAR(longer.strokes.back().chain.front().x, 92, 1e-9);
  EXPECT_NEAR(longer.strokes.back().chain.back().x, 104, 1e-9);
  // Too short for a turn, or turns too small to be seen: drawn through.
  text.entities = line(14, 0, "8 D 48 0.5") + line(100, 0, "8 D 48 0.001");
  EXPECT_EQ(painted(text.read()).strokes.size(), 2u);
}

TEST(Linetypes, OfAPolylineBeginAnewAtItsCornersUnlessItSaysOtherwise) {
  SceneText text;
  text.linetypes =
      "0 LTYPE 100 AcDbLinetypeTableRecord 2 Dash 70 0 3 @ 72 65 73 2 40 15 49 10 74 0 49 -5 74 0";
  text.layers = layer("0", 7);
  const auto polyline = [](int flags) {
    return " 0 LWPOLYLINE 100 AcDbEntity 8 0 6 Dash 100 AcDbPolyline 90 3 70 " +
           std::to_string(flags) + " 10 0 20 0 10 40 20 0 10 40 20 34";
  };
  text.entities = polyline(0);
  const RecordingPainter anew = painted(text.read());
  EXPECT_EQ(anew.strokes.size(), 6u);  // either side two at its ends and one between
  text.entities = polyline(128);
  const RecordingPainter whole = painted(text.read());
  EXPECT_EQ(whole.strokes.size(), 5u);
  EXPECT_TRUE(std::ranges::any_of(whole.strokes, [](const auto& stroke) {
    return stroke.chain.size() == 3;  // a dash goes around the corner
  }));
}

TEST(Lineweights, CountInMillimetresWhereTheyAreWanted) {
  SceneText text;
  text.layers = layer("0", 7) + layer("Wide", 7, 0, "6 Continuous 370 50");
  text.entities = line(9, 0, "8 Wide") + line(9, 0, "8 Wide 370 100") + line(9, 0, "8 0");
  const drawing::Drawing drawing = text.read();
  SettingOptions options;
  options.units_per_inch = 254;
  EXPECT_EQ(painted(drawing, options).strokes[0].width, 1);
  options.lineweights = true;
  const RecordingPainter painter = painted(drawing, options);
  EXPECT_NEAR(painter.strokes[0].width, 5, 1e-9);
  EXPECT_NEAR(painter.strokes[1].width, 10, 1e-9);
  EXPECT_NEAR(painter.strokes[2].width, 2.5, 1e-9);
}

TEST(Marks, ColourWhatTheyNameAndAllWithinIt) {
  SceneText text;
  text.layers = layer("0", 7);
  text.blocks = block("B", line(9, 0, "8 0 62 5"));
  text.entities = line(9, 0, "5 A1 8 0 62 5") + insert("B", "5 A2 8 0") + insert("B", "5 A3 8 0");
  const drawing::Drawing drawing = text.read();
  Marks marks;
  marks.rest = white;
  marks.colors[drawing.find(0xA2)] = red;
  Scene scene(drawing, {}, &marks);
  EXPECT_THAT(colors(painted(scene)), ElementsAre(white, white));
  marks.show = Marks::Show::marked;
  EXPECT_THAT(colors(painted(scene)), ElementsAre(red));
}

}  // namespace
}  // namespace velmar::render
