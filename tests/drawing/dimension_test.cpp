#include <gtest/gtest.h>

#include <filesystem>

#include "drawing/dimension/arrowheads.h"
#include "drawing/dimension/drawn_block.h"
#include "drawing/dimension/linear_layout.h"
#include "drawing/dimension/measured_text.h"
#include "drawing/dimension/styles.h"
#include "drawing/extents.h"

namespace velmar::drawing {
namespace {

TEST(MeasuredText, SaysALengthInTheUnitsOfTheStyle) {
  struct Row {
    double length;
    std::int32_t units, decimals, zeros;
    const char* expected;
  };
  const Row rows[] = {
      {0.5, 2, 2, 0, "0.50"},        {0.5, 2, 2, 4, ".50"},        {2.125, 2, 2, 8, "2.13"},
      {2.5, 2, 4, 8, "2.5"},         {100, 2, 4, 12, "100"},       {0, 2, 2, 12, "0"},
      {1234.5, 1, 2, 0, "1.23E+03"}, {15.5, 3, 2, 0, "1'-3.50\""}, {24, 3, 2, 0, "2'"},
      {24, 3, 2, 1, "2'-0.00\""},    {11.999, 3, 2, 0, "1'"},      {15.5, 4, 4, 0, "1'-3 1/2\""},
      {12.5, 4, 4, 0, "1'-0 1/2\""}, {0.75, 4, 4, 0, "3/4\""},     {0.75, 4, 4, 1, "0'-0 3/4\""},
      {23.999, 4, 4, 0, "2'"},       {15.625, 5, 3, 0, "15 5/8"},  {0.0625, 5, 3, 0, "1/8"},
      {0.06, 5, 3, 0, "0"},
  };
  for (const Row& row : rows) {
    DimVariables v;
    v.units = row.units;
    v.decimals = row.decimals;
    v.zeros = row.zeros;
    EXPECT_EQ(length_text(row.length, v, TextForm::plain), row.expected) << row.length;
  }
  DimVariables stacked;
  stacked.units = 4;
  EXPECT_EQ(length_text(15.5, stacked, TextForm::mtext), "1'-3{\\H1x;\\S1/2;}\"");
}

TEST(MeasuredText, PutsAroundTheNumberWhatTheStyleAndTheTextSay) {
  DimVariables v;
  v.decimals = 1;
  v.affix = "L=<> mm";
  EXPECT_EQ(measured_text(7, "", v, TextForm::mtext), "L=7.0 mm");
  EXPECT_EQ(measured_text(7, "2x <>", v, TextForm::mtext), "2x L=7.0 mm");
  EXPECT_EQ(measured_text(7, "typ.", v, TextForm::mtext), "typ.");
  EXPECT_EQ(measured_text(7, " ", v, TextForm::mtext), "");
  v.affix = " mm";
  v.rounding = 0.5;
  EXPECT_EQ(measured_text(7.3, "", v, TextForm::mtext), "7.5 mm");
  v.alternate = 1;
  v.alternate_factor = 2;
  EXPECT_EQ(measured_text(7, "", v, TextForm::mtext), "7.0 mm [14.00]");
  v = {};
  v.decimals = v.tolerance_decimals = 1;
  v.tolerance = 1;
  v.plus = v.minus = 0.2;
  EXPECT_EQ(measured_text(7, "", v, TextForm::mtext), "7.0%%p0.2");
  v.minus = 0.1;
  EXPECT_EQ(measured_text(7, "", v, TextForm::mtext), "7.0{\\H1x;\\S+0.2^-0.1;}");
  v.limits = 1;
  EXPECT_EQ(measured_text(7, "", v, TextForm::plain), "7.2/6.9");
}

Dimension horizontal(double length) {
  Dimension dimension;
  dimension.second = {length, 0, 0};
  dimension.definition = {0, 5, 0};
  return dimension;
}

DimVariables large() {
  DimVariables v;
  v.arrow_size = v.text_height = 2;
  v.text_gap = v.extension_offset = v.extension_beyond = 1;
  return v;
}

std::string text_of(const std::vector<Stretch>& lines) {
  std::string text;
  for (const Stretch& line : lines) {
    text += "(" + std::to_string(std::lround(line.from.x)) + "," +
            std::to_string(std::lround(line.from.y)) + ")-(" +
            std::to_string(std::lround(line.to.x)) + "," + std::to_string(std::lround(line.to.y)) +
            ") ";
  }
  return text;
}

// Arrows are 2 long, the text is 6 wide and 2 high, all gaps are 1.
TEST(LinearLayout, GoesWhereThereIsRoom) {
  struct Row {
    double length;
    std::int32_t vertical, fit, line_inside;
    double text_x, text_y;
    const char* lines;
  };
  const Row rows[] = {
      {20, 0, 3, 0, 10, 5, "(2,5)-(6,5) (14,5)-(18,5) "},   // all fits
      {20, 1, 3, 0, 10, 7, "(2,5)-(18,5) "},                // the text above the line
      {10, 1, 3, 0, 5, 7, "(-4,5)-(-2,5) (12,5)-(14,5) "},  // arrows outside
      {10, 1, 3, 1, 5, 7, "(0,5)-(10,5) (-4,5)-(-2,5) (12,5)-(14,5) "},
      {10, 0, 2, 0, 16, 5, "(2,5)-(8,5) (10,5)-(12,5) "},  // the text outside
      {6, 0, 3, 0, 12, 5, "(2,5)-(4,5) (6,5)-(8,5) "},     // only the arrows fit
      {3, 0, 0, 0, 11, 5, "(-4,5)-(-2,5) (5,5)-(7,5) "},   // nothing fits
  };
  for (const Row& row : rows) {
    DimVariables v = large();
    v.vertical = row.vertical;
    v.fit = row.fit;
    v.line_inside = row.line_inside;
    const LinearLayout laid = lay_out(horizontal(row.length), v, {6, 2}, {1, 1});
    EXPECT_EQ(text_of(laid.lines), row.lines) << row.length << " " << row.fit;
    EXPECT_NEAR(laid.text_middle.x, row.text_x, 1e-9) << row.length;
    EXPECT_NEAR(laid.text_middle.y, row.text_y, 1e-9) << row.length;
    EXPECT_EQ(text_of(laid.extensions).substr(0, 12), "(0,1)-(0,6) ");
  }
}

TEST(LinearLayout, KeepsAPlaceThatTheUserChoseAndLeadsToIt) {
  Dimension dimension = horizontal(20);
  dimension.flags |= Dimension::user_text_flag;
  dimension.text_position = {10, 15, 0};
  DimVariables v = large();
  v.no_line2 = v.no_extension1 = 1;
  v.text_movement = 1;
  const LinearLayout laid = lay_out(dimension, v, {6, 2}, {1, 1});
  EXPECT_EQ(laid.text_middle, (Point{10, 15, 0}));
  EXPECT_EQ(text_of(laid.lines), "(2,5)-(10,5) (10,5)-(14,15) ");
  EXPECT_EQ(text_of(laid.extensions), "(20,1)-(20,6) ");
}

TEST(LinearLayout, TurnsUpsideDownTextsAndSlantsExtensionLines) {
  Dimension dimension = horizontal(20);
  dimension.first = {20, 0, 0};
  dimension.second = {0, 0, 0};
  dimension.flags = Dimension::aligned;
  dimension.oblique = std::numbers::pi / 4;
  DimVariables v = large();
  v.inside_horizontal = 0;
  const LinearLayout laid = lay_out(dimension, v, {6, 2}, {0, 0});
  EXPECT_NEAR(laid.text_angle, 0, 1e-9);
  EXPECT_EQ(text_of(laid.extensions), "(21,1)-(26,6) (1,1)-(6,6) ");
}

TEST(Overrides, LeaveTheOtherDataOfTheirApplicationAlone) {
  const ExtendedData data{{1001, "OTHER"},  {1070, "5"}, {1001, "ACAD"}, {1000, "NOTE"},
                          {1000, "DSTYLE"}, {1002, "{"}, {1070, "40"},   {1040, "2.50"},
                          {1002, "}"},      {1040, "7"}};
  Overrides overrides = overrides_in(data);
  ASSERT_EQ(overrides.size(), 1U);
  EXPECT_EQ(overrides.front().value, "2.50");
  set(overrides, {77, 1070, "1"});
  const ExtendedData expected{{1001, "ACAD"}, {1000, "NOTE"}, {1000, "DSTYLE"}, {1002, "{"},
                              {1070, "40"},   {1040, "2.50"}, {1070, "77"},     {1070, "1"},
                              {1002, "}"},    {1040, "7"}};
  EXPECT_EQ(with_overrides(data, overrides), expected);
  EXPECT_EQ(overrides_in({{1001, "ACAD"}, {1000, "DSTYLE"}}).size(), 0U);
}

TEST(DrawnBlock, IsNeverTheDrawingItself) {
  Drawing drawing = Drawing::empty();
  drawing.add(SpaceId::model, {{}, Line{{0, 0, 0}, {1, 1, 0}}});
  Dimension dimension = horizontal(20);
  dimension.block = "*Model_Space";
  const RecordId id = drawing.add(SpaceId::model, {{}, dimension});
  transform_dimension(drawing, id, scaling({}, 2));
  EXPECT_EQ(drawing.entity_count(SpaceId::model), 2U);
  EXPECT_EQ(std::get<Dimension>(drawing.read_body(id)).block, "*D1");
}

TEST(Arrowheads, HaveTheirBlocksUnderTheNamesOfOldDrawingsToo) {
  Drawing drawing = Drawing::empty();
  EXPECT_EQ(arrow_block(drawing, "BoxBlank"), "_BOXBLANK");
  EXPECT_EQ(arrow_block(drawing, "NOT_HERE"), "");
  require_arrow_block(drawing, "BOXBLANK");
  require_arrow_block(drawing, "_BoxBlank");
  EXPECT_EQ(drawing.spaces().size(), 3U);
  drawing.add_definition("BOXBLANK");
  EXPECT_EQ(arrow_block(drawing, "BOXBLANK"), "BOXBLANK") << "the drawing's own";
  for (std::int32_t number = 0; number < arrowhead_count; ++number) {
    const std::string block(arrowhead(number).block);
    EXPECT_EQ(arrowhead_number(block), number);
    require_arrow_block(drawing, block);
    EXPECT_EQ(arrow_block(drawing, block), block);
  }
}

/// Of every drawing of the corpus that opens.
template <class Visit>
void for_each_dimension(Visit visit) {
  for (const auto& entry : std::filesystem::recursive_directory_iterator(VELMAR_CORPUS)) {
    const std::string extension = entry.path().extension().string();
    if (extension != ".dxf" && extension != ".DXF") continue;
    std::optional<Drawing> opened;
    try {
      opened.emplace(Drawing::open(entry.path()));
    } catch (const Error&) {
      continue;
    }
    for (std::uint32_t i = 0; i < opened->size(); ++i) {
      const auto id = static_cast<RecordId>(i);
      if (opened->record(id).kind != Kind::dimension) continue;
      const std::string where =
          entry.path().string() + " #" + handle_text(opened->record(id).handle);
      visit(*opened, id, where);
    }
  }
}

// The program that wrote the file tells what it measured and where it put the text.
TEST(DimensionCorpus, IsMeasuredAndLaidOutAsItsWriterDid) {
  int measured_ones = 0, placed = 0, elsewhere = 0;
  for_each_dimension([&](Drawing& drawing, RecordId id, const std::string& where) {
    const auto dimension = std::get<Dimension>(drawing.read_body(id));
    if (dimension.measured != 0) {
      ++measured_ones;
      EXPECT_NEAR(measured(drawing, id), dimension.measured, 1e-6 * dimension.measured) << where;
    }
    if (!dimension.is_linear() || dimension.has_user_text_place()) return;
    const Point middle = linear_layout(drawing, id).text_middle;
    const double off = norm(middle - dimension.text_position);
    const DimVariables v = variables_of(drawing, id);
    const double near = std::max(0.05 * measurement(dimension), v.text_height * v.factor());
    ++(off <= near ? placed : elsewhere);
  });
  EXPECT_GT(measured_ones, 200);
  EXPECT_GT(placed, 8 * elsewhere);
}

TEST(DimensionCorpus, ThereAndBackAgainItIsDrawnInTheSamePlace) {
  for_each_dimension([](Drawing& drawing, RecordId id, const std::string& where) {
    const auto before = extents(drawing, id);
    const auto dimension = std::get<Dimension>(drawing.read_body(id));
    try {
      transform_dimension(drawing, id, translation({1000, -500, 0}));
      transform_dimension(drawing, id, translation({-1000, 500, 0}));
    } catch (const Error& refused) {
      ADD_FAILURE() << where << ": " << refused.what();
    }
    const auto after = extents(drawing, id);
    ASSERT_EQ(before.has_value(), after.has_value()) << where;
    if (!before) return;
    const double size = norm(before->max) + 1000;
    EXPECT_LE(norm(before->min - after->min) + norm(before->max - after->max), 1e-9 * size)
        << where;
    const auto now = std::get<Dimension>(drawing.read_body(id));
    EXPECT_LE(norm(now.first - dimension.first), 1e-9 * size) << where;
  });
}

}  // namespace
}  // namespace velmar::drawing
