// Real drawings: what is painted fills the box that the drawing library finds.

#include <gtest/gtest.h>

#include <filesystem>

#include "drawing/name.h"
#include "render/recording_painter.h"
#include "render/units.h"

namespace velmar::render {
namespace {

namespace fs = std::filesystem;

std::vector<fs::path> drawings() {
  std::vector<fs::path> paths;
  for (const auto& entry : fs::recursive_directory_iterator(VELMAR_CORPUS)) {
    const std::string extension = drawing::folded_name(entry.path().extension().string());
    if (extension == drawing::folded_name(".dxf")) paths.push_back(entry.path());
  }
  std::ranges::sort(paths);
  return paths;
}

class Corpus : public testing::TestWithParam<fs::path> {};

TEST_P(Corpus, IsPaintedWithinItsExtents) {
  std::optional<drawing::Drawing> drawing;
  try {
    drawing.emplace(drawing::Drawing::open(GetParam()));
  } catch (const drawing::Error&) {
    GTEST_SKIP() << "cannot be read";
  }
  // Marks of points and endless lines go beyond the box.
  drawing->set_header("$PDMODE", 70, 0);
  for (const drawing::RecordId id : drawing->entities(drawing::SpaceId::model)) {
    const drawing::Kind kind = drawing->record(id).kind;
    if (kind == drawing::Kind::ray || kind == drawing::Kind::xline) drawing->erase(id);
  }
  Scene scene(*drawing, {});
  for (const drawing::Layout& layout : drawing->layouts()) {
    if (layout.space == drawing::SpaceId::none) continue;
    const drawing::Box box = scene.extents(layout.space);
    if (box.empty()) continue;
    Window expected{box.min.x, box.min.y, box.max.x, box.max.y};
    const double size = std::max(expected.width(), expected.height());
    const double scale = size > 0 ? 1000 / size : 1;
    const drawing::Matrix place{drawing::x_axis * scale, drawing::y_axis * scale,
                                drawing::z_axis * scale, expected.middle() * -scale};
    RecordingPainter painter;
    const Window window{-500, -500, 500, 500};
    scene.draw(layout.space, {painter, window, place});
    ASSERT_FALSE(painter.all.empty()) << layout.name;
    const double slack = 3;  // of 1000: widths and mitres of lines, marks of points
    const double x = expected.width() * scale / 2, y = expected.height() * scale / 2;
    EXPECT_LE(painter.all.right, x + slack) << layout.name;
    EXPECT_GE(painter.all.left, -x - slack) << layout.name;
    EXPECT_LE(painter.all.high, y + slack) << layout.name;
    EXPECT_GE(painter.all.low, -y - slack) << layout.name;
  }
}

/// How many millimetres a unit of the first sheet is.
double sheet_unit(const std::string& file) {
  const auto drawing = drawing::Drawing::open(std::string(VELMAR_CORPUS) + "/" + file);
  return millimetres_per_unit(drawing, drawing.layouts().at(1).space);
}

TEST(Units, OfASheetAreThoseOfItsPageSetup) {
  EXPECT_EQ(sheet_unit("dxf-parser/api-cw750-details.dxf"), 25.4);
  EXPECT_EQ(sheet_unit("netdxf/sample.dxf"), 1);
  EXPECT_NEAR(sheet_unit("derived/ZD_-_Senior_from_dwg.dxf"), 1 / 43.89195962401938, 1e-12);
}

std::string name_of(const testing::TestParamInfo<fs::path>& test) {
  std::string name = fs::relative(test.param, VELMAR_CORPUS).string();
  for (char& c : name) {
    if (!std::isalnum(static_cast<unsigned char>(c))) c = '_';
  }
  return name;
}

INSTANTIATE_TEST_SUITE_P(Files, Corpus, testing::ValuesIn(drawings()), name_of);

}  // namespace
}  // namespace velmar::render
