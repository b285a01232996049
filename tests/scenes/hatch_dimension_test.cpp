#include <gmock/gmock.h>

#include <cmath>
#include <numbers>

#include "basic/conversion.h"
#include "scenes/entity_lines.h"
#include "scenes/scene.h"

namespace velmar {
namespace {

using basic::Value;
using embedded::head;
using host::Member;
using host::Point;
using testing::ElementsAre;

std::string square(const char* handle) {
  return head("LWPOLYLINE", handle) +
         "100 AcDbPolyline\n90 4\n70 1\n10 0\n20 0\n10 9000\n20 0\n10 9000\n20 9000\n10 0\n20 "
         "9000\n";
}

double number(const host::View& object, Member member) { return object.get<double>(member); }

TEST(Hatch, FillsARectangleAndLeavesNoBoundary) {
  Scene scene{std::string()};
  EXPECT_FALSE(scene.run("Hatch", 100.0, 50.0, 0.0, 0.0).failure);
  const auto model_space = scene.document().ModelSpace();
  ASSERT_EQ(model_space.Count(), 1);
  const host::Hatch hatch = host::as<host::Hatch>(model_space.Item(0));
  EXPECT_EQ(hatch.Layer(), "Eng-Hatch");
  EXPECT_EQ(hatch.Color(), 256);
  EXPECT_EQ(number(hatch, Member::PatternSpace), 25);
  EXPECT_EQ(number(hatch, Member::Area), 5000);
  const host::Box box = hatch.GetBoundingBox();
  EXPECT_EQ(box.min, (Point{-50, -25, 0}));
  EXPECT_EQ(box.max, (Point{50, 25, 0}));

  EXPECT_FALSE(scene.run("Hatch", 0.0, 50.0, 0.0, 0.0).failure);
  EXPECT_FALSE(scene.run("Hatch", "wide", 50.0, 0.0, 0.0).failure);
}

TEST(HatchAligned, FillsAClosedEntityAndKeepsIt) {
  Scene scene(square("30"));
  EXPECT_FALSE(scene.run("HatchAligned", "30").failure);
  ASSERT_EQ(scene.document().ModelSpace().Count(), 2);
  const host::Hatch hatch = host::as<host::Hatch>(scene.document().ModelSpace().Item(1));
  EXPECT_EQ(hatch.Layer(), "Eng-Hatch");
  EXPECT_EQ(number(hatch, Member::PatternSpace), 1000);
  EXPECT_EQ(number(hatch, Member::Area), 81e6);
  EXPECT_EQ(scene.document().Layers().Item("Eng-Hatch").Color(), 8);

  // A boundary that is none leaves an empty hatch.
  EXPECT_FALSE(scene.run("HatchAligned", "FFFF").failure);
  EXPECT_EQ(scene.document().ModelSpace().Count(), 3);
}

TEST(Hatch_Layer, HatchesEveryPolylineOfTheLayer) {
  Scene scene(square("30") + line_lines("31", "Walls") + square("32"));
  EXPECT_FALSE(scene.answers({"#30"}).run("Hatch_Layer").failure);
  EXPECT_EQ(scene.document().ModelSpace().Count(), 5);
}

/// A drawing whose new handles are decimal digits alone for a while.
std::filesystem::path drawing_with_plain_handles(const Scene& scene) {
  std::string text = embedded::drawing_text(square("30"));
  text.replace(text.find("FFF"), 3, "1000");
  return scene.file("dimensions.dxf", text);
}

TEST(DimAL, AddsAnAlignedDimensionThroughTheObjectModel) {
  Scene scene{std::string()};
  const Outcome outcome = scene.run("DimAL", 0.0, 0.0, 100.0, 50.0, "missing", false, 0.0);
  EXPECT_FALSE(outcome.failure);
  EXPECT_EQ(outcome.arguments.back(), Value(2000.0));
  ASSERT_EQ(scene.document().ModelSpace().Count(), 1);
  const auto dimension = host::as<host::AlignedDimension>(scene.document().ModelSpace().Item(0));
  EXPECT_EQ(dimension.Layer(), "Eng-dimension");
  EXPECT_EQ(dimension.TextPosition(), (Point{50, 25, 0}));
  EXPECT_EQ(dimension.ExtLine2Point(), (Point{100, 50, 0}));
  EXPECT_NEAR(number(dimension, Member::Measurement), 111.803398875, 1e-9);
  EXPECT_EQ(dimension.get<std::int32_t>(Member::Fit), 3);
  EXPECT_TRUE(dimension.get<bool>(Member::TextInside));
  EXPECT_TRUE(dimension.get<bool>(Member::ForceLineInside));
}

TEST(DimAL, TypesTheHostsCommand) {
  Scene scene{std::string()};
  scene.application().Documents().Open(drawing_with_plain_handles(scene).string());
  scene.document().Layers().Add("Eng-dimension");  // this form does not make it
  const Outcome outcome = scene.run("DimAL", 0.0, 0.0, 100.0, 0.0, "", true, 30.0);
  EXPECT_FALSE(outcome.failure);
  EXPECT_EQ(outcome.arguments.back(), Value(30.0));
  ASSERT_EQ(scene.document().ModelSpace().Count(), 2);
  const auto across = host::as<host::RotatedDimension>(scene.document().ModelSpace().Item(1));
  EXPECT_EQ(across.Layer(), "Eng-dimension");
  EXPECT_EQ(across.Color(), 256);
  EXPECT_NEAR(across.Rotation(), 0, 1e-12);
  EXPECT_EQ(number(across, Member::Measurement), 100);
  EXPECT_LT(across.GetBoundingBox().min.y, -29);

  scene.run("DimAL", 5.0, 0.0, 5.0, 80.0, "", true, 30.0);
  const auto up = host::as<host::RotatedDimension>(scene.document().ModelSpace().Item(2));
  EXPECT_EQ(number(up, Member::Measurement), 80);
  EXPECT_LT(up.GetBoundingBox().min.x, -24);

  // Neither above nor beside each other: the command gets no place, and nothing is drawn.
  EXPECT_FALSE(scene.run("DimAL", 0.0, 0.0, 50.0, 80.0, "", true, 30.0).failure);
  EXPECT_EQ(scene.document().ModelSpace().Count(), 3);
}

TEST(Dim_Layer, DimensionsTheClosedPolylinesOfTheLayer) {
  Scene scene(square("30") + line_lines("31"));
  EXPECT_FALSE(scene.answers({"#30", "0,0", "300,0"}).run("Dim_Layer").failure);
  EXPECT_GT(scene.document().ModelSpace().Count(), 2);
}

TEST(AlignDimension, PutsParallelDimensionLinesOnOneLine) {
  Scene scene{std::string()};
  const auto model_space = scene.document().ModelSpace();
  const auto base = model_space.AddDimAligned({0, 0, 0}, {100, 0, 0}, {50, 10, 0});
  const auto other = model_space.AddDimAligned({150, 5, 0}, {120, 5, 0}, {130, 25, 0});
  const auto across = model_space.AddDimAligned({0, 0, 0}, {0, 50, 0}, {-20, 25, 0});
  const double base_y = base.TextPosition().y, across_x = across.TextPosition().x;
  const auto pick = [](const host::Entity& entity) { return "#" + entity.Handle(); };
  scene.answers({pick(base), pick(base), pick(other), pick(across), ""});
  EXPECT_FALSE(scene.run("AlignDimension").failure);
  EXPECT_EQ(scene.asked().front(), "\r\nSelect Base Dimension");
  EXPECT_THAT(scene.said(), testing::Contains("\r\nAutocad Ready."));
  EXPECT_NEAR(other.TextPosition().y, base_y, 1e-9);
  EXPECT_EQ(other.ExtLine1Point(), (Point{150, 5, 0}));
  EXPECT_EQ(across.TextPosition().x, across_x);
  EXPECT_EQ(scene.document().SelectionSets().Count(), 0);
  EXPECT_FALSE(scene.answers({"^C"}).run("AlignDimension").failure);
  EXPECT_THAT(scene.said(), testing::IsEmpty());
}

TEST(AlignDimension, TakesARotatedDimensionAsItIsTurned) {
  Scene scene{std::string()};
  const auto model_space = scene.document().ModelSpace();
  const auto add = [&](Point first, Point second, Point line) {
    constexpr double upright = std::numbers::pi / 2;
    return host::from_value<host::Entity>(
        model_space.call(Member::AddDimRotated, first, second, line, upright));
  };
  const auto text_of = [](const host::Entity& dimension) {
    return dimension.get<Point>(Member::TextPosition);
  };
  const host::Entity base = add({0, 0, 0}, {10, 40, 0}, {-20, 0, 0});
  const host::Entity other = add({5, 50, 0}, {8, 90, 0}, {-35, 0, 0});
  const double other_y = text_of(other).y;
  ASSERT_GT(std::abs(text_of(other).x - text_of(base).x), 10);
  scene.answers({"#" + base.Handle(), "#" + other.Handle(), ""});
  EXPECT_FALSE(scene.run("AlignDimension").failure);
  EXPECT_NEAR(text_of(other).x, text_of(base).x, 1e-9);
  EXPECT_NEAR(text_of(other).y, other_y, 1e-9);
}

TEST(ScaleXY, RedrawsAlignedDimensionsOnTheMeasuredPoints) {
  Scene scene{std::string()};
  scene.document().ModelSpace().AddDimAligned({1, 1, 5}, {11, 1, 5}, {6, 8, 5});
  scene.answers({"2", "3"}).run("ScaleXY");
  ASSERT_EQ(scene.document().ModelSpace().Count(), 1);
  const auto dimension = host::as<host::AlignedDimension>(scene.document().ModelSpace().Item(0));
  EXPECT_EQ(dimension.ExtLine1Point(), (Point{2, 3, 0}));
  EXPECT_EQ(dimension.ExtLine2Point(), (Point{22, 3, 0}));
  EXPECT_EQ(number(dimension, Member::Measurement), 20);
}

}  // namespace
}  // namespace velmar
