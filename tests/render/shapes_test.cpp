// Where lines and areas come to lie, against numbers worked out by hand.

#include <gmock/gmock.h>

#include <cmath>

#include "drawing/extents.h"
#include "drawing/fonts/font_choice.h"
#include "drawing/fonts/stroke_font.h"
#include "render/frame.h"
#include "render/recording_painter.h"

namespace velmar::render {
namespace {

std::string entity(const std::string& words) {
  const std::size_t name_end = words.find(' ', 2);
  return " " + words.substr(0, name_end) + " 100 AcDbEntity 8 0" + words.substr(name_end);
}

drawing::Drawing with(const std::string& entities, const std::string& header = "") {
  SceneText text;
  text.header = header;
  text.layers = layer("0", 7);
  text.entities = entities;
  return text.read();
}

void expect_window(const Window& window, double left, double low, double right, double high,
                   double tolerance = 1e-6) {
  EXPECT_NEAR(window.left, left, tolerance);
  EXPECT_NEAR(window.low, low, tolerance);
  EXPECT_NEAR(window.right, right, tolerance);
  EXPECT_NEAR(window.high, high, tolerance);
}

double area_of(const Chain& chain) {
  double twice = 0;
  for (std::size_t i = 0; i < chain.size(); ++i) {
    const Point &a = chain[i], &b = chain[(i + 1) % chain.size()];
    twice += a.x * b.y - b.x * a.y;
  }
  return std::abs(twice) / 2;
}

TEST(Shapes, CurvesKeepToThePicturesTolerance) {
  const auto drawing = with(entity("0 CIRCLE 100 AcDbCircle 10 0 20 0 40 1000"));
  const Chain chain = painted(drawing).strokes.at(0).chain;
  for (const Point& p : chain) EXPECT_NEAR(norm(p), 1000, 1e-9);
  double farthest = 0;
  for (std::size_t i = 1; i < chain.size(); ++i) {
    farthest = std::max(farthest, 1000 - norm((chain[i] + chain[i - 1]) * 0.5));
  }
  EXPECT_LT(farthest, 0.11);
  EXPECT_LT(chain.size(), 400u);
}

TEST(Shapes, ArcsOfTurnedNormalsAndBulgesLieWhereTheyBelong) {
  // Seen from behind x is mirrored: from (0, 5) through (-3.5, 3.5) to (-5, 0).
  const auto arc =
      with(entity("0 ARC 100 AcDbCircle 10 0 20 0 40 5 210 0 220 0 230 -1 "
                  "100 AcDbArc 50 0 51 90"));
  expect_window(painted(arc).all, -5, 0, 0, 5, 1e-9);
  const auto half =
      with(entity("0 LWPOLYLINE 100 AcDbPolyline 90 2 70 0 10 0 20 0 42 1 10 10 20 0"));
  expect_window(painted(half).all, 0, -5, 10, 0, 0.02);
}

TEST(Shapes, WidePolylinesAreAreas) {
  const auto drawing =
      with(entity("0 LWPOLYLINE 100 AcDbPolyline 90 3 70 0 43 2 10 0 20 0 10 10 20 0 10 10 20 10"));
  const RecordingPainter painter = painted(drawing);
  double sum = 0;
  for (const Chain& area : painter.fills.at(0).areas) sum += area_of(area);
  EXPECT_NEAR(sum, 40, 1e-9);  // mitred at the corner: 10.0 x 2 along each middle line
  expect_window(painter.all, 0, -1, 11, 10);
}

TEST(Shapes, EndlessLinesReachTheWindowsBorder) {
  const auto drawing = with(entity("0 RAY 100 AcDbRay 10 5 20 5 11 1 21 0") +
                            entity("0 XLINE 100 AcDbXline 10 5 20 5 11 0 21 1"));
  Scene scene(drawing, {});
  const RecordingPainter painter = painted(scene, drawing::SpaceId::model, {0, 0, 20, 30});
  ASSERT_EQ(painter.strokes.size(), 2u);
  expect_window(window_of(painter.strokes[0].chain), 5, 5, 21, 5);
  expect_window(window_of(painter.strokes[1].chain), 5, -1, 5, 31);
}

TEST(Shapes, WhatIsFarOutsideIsCutOff) {
  const auto drawing = with(entity("0 LINE 100 AcDbLine 10 -1e12 20 10 11 1e12 21 10") +
                            entity("0 SOLID 100 AcDbTrace 10 -1e9 20 0 11 1e9 21 0 12 -1e9 22 5 "
                                   "13 1e9 23 5") +
                            entity("0 LINE 100 AcDbLine 10 500 20 500 11 900 21 500"));
  Scene scene(drawing, {});
  const RecordingPainter painter = painted(scene, drawing::SpaceId::model, {0, 0, 20, 30});
  EXPECT_EQ(painter.strokes.size(), 1u);
  EXPECT_EQ(painter.fills.size(), 1u);
  expect_window(painter.all, -100, 0, 120, 10, 1e-3);
}

TEST(Shapes, PointsAreMarkedByTheirMode) {
  const auto count = [](const std::string& mode) {
    return painted(with(entity("0 POINT 100 AcDbPoint 10 1 20 1"),
                        "9 $PDMODE 70 " + mode + " 9 $PDSIZE 40 4"))
        .strokes.size();
  };
  EXPECT_EQ(count("0"), 1u);
  EXPECT_EQ(count("1"), 0u);
  EXPECT_EQ(count("3"), 2u);
  EXPECT_EQ(count("35"), 3u);
  EXPECT_EQ(count("98"), 4u);
}

std::string square(double low, double high) {
  const std::string a = std::to_string(low), b = std::to_string(high);
  return " 92 2 72 0 73 1 93 4 10 " + a + " 20 " + a + " 10 " + b + " 20 " + a + " 10 " + b +
         " 20 " + b + " 10 " + a + " 20 " + b + " 97 0";
}
std::string hatch(const std::string& pattern, int style, const std::string& lines) {
  return entity("0 HATCH 100 AcDbHatch 10 0 20 0 30 0 210 0 220 0 230 1 2 " + pattern + " 70 " +
                (lines.empty() ? "1" : "0") + " 71 0 91 3" + square(0, 100) + square(20, 80) +
                square(40, 60) + " 75 " + std::to_string(style) + " 76 1 " + lines + " 98 0");
}

TEST(Hatches, LeaveIslandsOutAsTheirStyleSays) {
  const std::size_t loops[] = {3, 2, 1};
  for (int style = 0; style < 3; ++style) {
    const RecordingPainter painter = painted(with(hatch("SOLID", style, "")));
    EXPECT_EQ(painter.fills.at(0).areas.size(), loops[style]) << style;
  }
  // Lines 10 apart, of which those at 0 and 100 do not count; the island cuts seven in two, and
  // three of these once more.
  const RecordingPainter lines =
      painted(with(hatch("LINE", 0, "52 0 41 1 77 0 78 1 53 0 43 0 44 0 45 0 46 10 79 0")));
  double drawn = 0;
  for (const auto& stroke : lines.strokes) drawn += window_of(stroke.chain).width();
  EXPECT_NEAR(drawn, 10 * 100 - 6 * 60 + 2 * 20, 1e-6);
}

TEST(Hatches, BecomeATintWherePatternsAreTooDense) {
  const std::string fine = "52 0 41 1 77 0 78 1 53 0 43 0 44 0 45 0 46 0.5 79 0";
  const RecordingPainter tint = painted(with(hatch("LINE", 0, fine)));
  EXPECT_TRUE(tint.strokes.empty());
  EXPECT_LT(tint.fills.at(0).ink.opacity, 0.9);
  // Far enough apart, but with hostile dashes.
  const auto hostile =
      with(hatch("DOTS", 0, "52 0 41 1 77 0 78 1 53 0 43 0 44 0 45 0 46 2 79 2 49 1e-9 49 -1e-9"));
  Scene scene(hostile, {});
  EXPECT_TRUE(painted(scene).strokes.empty());
  EXPECT_THAT(scene.warnings(), testing::ElementsAre(testing::HasSubstr("even tint")));
}

TEST(Texts, AreDrawnWhereTheyAreMeasured) {
  const auto drawing =
      with(entity("0 TEXT 100 AcDbText 10 10 20 20 40 50 1 HxgÄ 50 30 51 10 41 0.8"));
  const drawing::Box box = *extents(drawing, drawing.entities(drawing::SpaceId::model).at(0));
  const Window window = painted(drawing).all;
  EXPECT_TRUE(Window({box.min.x, box.min.y, box.max.x, box.max.y}).grown(1e-6).contains(window));
  EXPECT_GT(window.width(), 0.9 * (box.max.x - box.min.x));
}

class Fonts : public testing::TestWithParam<const char*> {};

TEST_P(Fonts, ShapesLieWithinWhatIsMeasured) {
  const drawing::FontPointer font = drawing::choose_font({GetParam(), "", false, false});
  for (char32_t c = 33; c < 127; ++c) {
    const drawing::Glyph glyph = font->glyph(c);
    const drawing::GlyphShape shape = font->shape(c);
    Window drawn;
    for (const Chain& chain : shape.chains) {
      for (const Point& p : chain) drawn.add(p);
    }
    const double slack = 1.5 / 21;
    const Window measured{glyph.left, -glyph.bottom, glyph.right, glyph.top};
    EXPECT_TRUE(measured.grown(slack).contains(drawn)) << char(c);
    if (drawn.width() > 0) {
      EXPECT_NEAR(drawn.width(), measured.width(), slack) << char(c);
    }
  }
  EXPECT_GT(font->shape(U'Ä').chains.size(), font->shape(U'A').chains.size());
  EXPECT_GT(font->shape(U'é').chains.size(), font->shape(U'e').chains.size());
}

INSTANTIATE_TEST_SUITE_P(
    Text, Fonts, testing::Values("simplex", "txt", "isocp", "arial.ttf", "times.ttf"),
    [](const auto& test) {
      return std::string(test.param).substr(0, std::string(test.param).find('.'));
    });

TEST(Frames, FitOrKeepAScale) {
  Window shown;
  shown.add({100, 100, 0});
  shown.add({300, 200, 0});
  const Frame fitted = make_frame(shown, {.longest = 420, .margin = 10});
  EXPECT_EQ(fitted.width, 420);
  EXPECT_EQ(fitted.height, 220);
  EXPECT_EQ(fitted.place({100, 100, 0}), (Point{10, 210, 0}));
  EXPECT_EQ(fitted.place({300, 200, 0}), (Point{410, 10, 0}));
  const Frame scaled = make_frame(shown, {.size = std::pair(1000.0, 1000.0), .scale = 0.5});
  EXPECT_EQ(scaled.place({300, 200, 0}), (Point{550, 475, 0}));
  EXPECT_THROW(make_frame(shown, {.size = std::pair(50.0, 50.0), .margin = 25}), drawing::Error);
  EXPECT_THROW(make_frame(shown, {.scale = 1e6}), drawing::Error);
  shown.add({-1e308, 1e308, 0});
  shown.add({1e308, 1e308, 0});
  EXPECT_THROW(make_frame(shown, {}), drawing::Error);
}

}  // namespace
}  // namespace velmar::render
