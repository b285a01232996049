#include "drawing/entities/tolerance.h"

#include <gtest/gtest.h>

#include <numbers>

#include "drawing/drawing.h"
#include "near.h"
#include "sample_text.h"

namespace velmar::drawing {
namespace {

Tolerance frame(const std::string& text) {
  Tolerance tolerance;
  tolerance.text = text;
  tolerance.text_height = 21;
  tolerance.gap = 10;
  return tolerance;
}

TEST(Tolerance, FramesEachCellThatHasSomething) {
  const Tolerance one = frame("X");  // 20 and twice the gap
  EXPECT_TRUE(near(extents(one), {{0, -20.5, 0}, {40, 20.5, 0}}));
  EXPECT_TRUE(near(extents(frame("X%%VX%%v%%v")), {{0, -20.5, 0}, {80, 20.5, 0}}));
  EXPECT_TRUE(near(extents(frame("X\nXX")), {{0, -61.5, 0}, {60, 20.5, 0}}));
  EXPECT_TRUE(near(extents(frame("{\\Fgdt;j}%%vX")), {{0, -20.5, 0}, {98, 20.5, 0}}));
  EXPECT_TRUE(extents(frame("%%v")).empty());
  EXPECT_EQ(layout(frame("X%%vX")).bars.size(), 5U);
}

TEST(Tolerance, IsMovedWithItsDirectionAndScale) {
  Tolerance tolerance = frame("X");
  tolerance.insertion = {1, 0, 0};
  transform(tolerance, scaling({}, 2) * rotation({}, z_axis, std::numbers::pi / 2));
  EXPECT_TRUE(near(extents(tolerance), {{-41, 2, 0}, {41, 82, 0}}));
  EXPECT_EQ(tolerance.scale, 2);
  const Box before = extents(tolerance);
  transform(tolerance, reflection({}, x_axis));
  EXPECT_TRUE(near(extents(tolerance),
                   {{-before.max.x, before.min.y, 0}, {-before.min.x, before.max.y, 0}}));
}

constexpr std::string_view words =
    "0 TOLERANCE 5 50 330 1F 100 AcDbEntity 8 0 100 AcDbFcf 3 Standard 10 0 20 0 30 0 1 X%%vY "
    "1001 OTHER 1000 kept 1001 ACAD 1000 DSTYLE 1002 { 1070 271 1070 3 1070 140 1040 2.50 1002 }";

TEST(Tolerance, TakesItsHeightFromExtendedDataAndWritesItThere) {
  Drawing drawing = Drawing::read(drawing_of("AC1015", words), "tolerance");
  const RecordId id = drawing.entities(SpaceId::model).front();
  const std::string before = drawing.bytes();
  auto tolerance = std::get<Tolerance>(drawing.read_body(id));
  EXPECT_EQ(tolerance.text_height, 2.5);
  EXPECT_EQ(tolerance.gap, 0.09);
  drawing.write_body(id, tolerance);
  EXPECT_EQ(drawing.bytes(), before);

  tolerance.text_height = 4;
  transform(tolerance, scaling({}, 3));
  drawing.write_body(id, tolerance);
  const auto again = std::get<Tolerance>(drawing.read_body(id));
  EXPECT_EQ(again.text_height, 4);
  EXPECT_EQ(again.scale, 3);
  using XData = std::vector<std::pair<int, std::string>>;
  EXPECT_EQ(drawing.read_xdata(id), (XData{{1001, "OTHER"},
                                           {1000, "kept"},
                                           {1001, "ACAD"},
                                           {1000, "DSTYLE"},
                                           {1002, "{"},
                                           {1070, "271"},
                                           {1070, "3"},
                                           {1070, "140"},
                                           {1040, "4.0"},
                                           {1070, "40"},
                                           {1040, "3.0"},
                                           {1002, "}"}}));
}

}  // namespace
}  // namespace velmar::drawing
