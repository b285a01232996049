#include <gtest/gtest.h>

#include <filesystem>
#include <numbers>

#include "drawing/dimension/arrowheads.h"
#include "drawing/dimension/drawn_block.h"
#include "drawing/dimension/layout.h"
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
TEST(DimensionLayout, GoesWhereThereIsRoom) {
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
    const DimensionLayout laid = lay_out(horizontal(row.length), v, {6, 2}, {1, 1});
    EXPECT_EQ(text_of(laid.lines), row.lines) << row.length << " " << row.fit;
    EXPECT_NEAR(laid.text_middle.x, row.text_x, 1e-9) << row.length;
    EXPECT_NEAR(laid.text_middle.y, row.text_y, 1e-9) << row.length;
    EXPECT_EQ(text_of(laid.extensions).substr(0, 12), "(0,1)-(0,6) ");
  }
}

TEST(DimensionLayout, KeepsAPlaceThatTheUserChoseAndLeadsToIt) {
  Dimension dimension = horizontal(20);
  dimension.flags |= Dimension::user_text_flag;
  dimension.text_position = {10, 15, 0};
  DimVariables v = large();
  v.no_line2 = v.no_extension1 = 1;
  v.text_movement = 1;
  const DimensionLayout laid = lay_out(dimension, v, {6, 2}, {1, 1});
  EXPECT_EQ(laid.text_middle, (Point{10, 15, 0}));
  EXPECT_EQ(text_of(laid.lines), "(2,5)-(10,5) (10,5)-(14,15) ");
  EXPECT_EQ(text_of(laid.extensions), "(20,1)-(20,6) ");
}

TEST(DimensionLayout, TurnsUpsideDownTextsAndSlantsExtensionLines) {
  Dimension dimension = horizontal(20);
  dimension.first = {20, 0, 0};
  dimension.second = {0, 0, 0};
  dimension.flags = Dimension::aligned;
  dimension.oblique = std::numbers::pi / 4;
  DimVariables v = large();
  v.inside_horizontal = 0;
  const DimensionLayout laid = lay_out(dimension, v, {6, 2}, {0, 0});
  EXPECT_NEAR(laid.text_angle, 0, 1e-9);
  EXPECT_EQ(text_of(laid.extensions), "(21,1)-(26,6) (1,1)-(6,6) ");
}

std::string text_of(const std::vector<ArcStretch>& arcs) {
  std::string text;
  for (const ArcStretch& arc : arcs) {
    text += std::to_string(std::lround(arc.radius)) + ":" +
            std::to_string(std::lround(arc.start * 180 / std::numbers::pi)) + "-" +
            std::to_string(std::lround(arc.end * 180 / std::numbers::pi)) + " ";
  }
  return text;
}

// The arc has a radius of 50 about (0,0); its marks are 2 long, the text is 6 wide and 2 high.
TEST(AngularLayout, StandsBetweenTheRaysWhereItsPointIs) {
  struct Row {
    Dimension::Type type;
    Point first, second, third, definition, arc;
    const char *arcs, *extensions;
  };
  const Row rows[] = {
      {Dimension::angular_3_point,
       {10, 0},
       {0, 20},
       {},
       {30, 40},
       {},
       "50:2-40 50:50-88 ",
       "(11,0)-(51,0) (0,21)-(0,51) "},
      {Dimension::angular_3_point,
       {10, 0},
       {0, 20},
       {},
       {-30, -40},
       {},
       "50:92-220 50:230-358 ",
       "(0,21)-(0,51) (11,0)-(51,0) "},
      // Of two lines through the same point one reaches beyond the arc, the other ends before it.
      {Dimension::angular_2_line,
       {-80, 0},
       {80, 0},
       {0, 10},
       {0, 20},
       {30, 40},
       "50:2-40 50:50-88 ",
       "(0,21)-(0,51) "},
      {Dimension::angular_2_line,
       {-80, 0},
       {80, 0},
       {0, 10},
       {0, 20},
       {30, -40},
       "50:-88--50 50:-40--2 ",
       "(0,9)-(0,-51) "},
  };
  for (const Row& row : rows) {
    Dimension dimension;
    dimension.flags = row.type;
    dimension.first = row.first;
    dimension.second = row.second;
    dimension.third = row.third;
    dimension.definition = row.definition;
    dimension.arc_point = row.arc;
    DimVariables v = large();
    v.inside_horizontal = 0;
    const DimensionLayout laid = lay_out(dimension, v, {6, 2}, {1, 1});
    EXPECT_EQ(text_of(laid.arcs), row.arcs);
    EXPECT_EQ(text_of(laid.extensions), row.extensions);
    EXPECT_NEAR(norm(laid.text_middle), 50, 1e-9);
  }
  Dimension parallel;
  parallel.flags = Dimension::angular_2_line;
  parallel.second = {1, 0, 0};
  parallel.third = {0, 1, 0};
  parallel.definition = {1, 1, 0};
  EXPECT_TRUE(lay_out(parallel, large(), {6, 2}, {1, 1}).arcs.empty()) << "nothing to measure";
}

TEST(RoundLayout, LeadsFromTheCircleToTheText) {
  Dimension radius;
  radius.flags = Dimension::radius;
  radius.third = {20, 0, 0};
  DimVariables v = large();
  v.center_size = 3;
  // Two arrows before the text, whose gap is 1; the mark covers 2 of the line.
  DimensionLayout laid = lay_out(radius, v, {6, 2}, {1, 1});
  EXPECT_EQ(text_of(laid.lines), "(22,0)-(24,0) (-3,0)-(3,0) (0,-3)-(0,3) ");
  EXPECT_EQ(std::lround(laid.text_middle.x), 28);
  ASSERT_TRUE(laid.second_arrow);
  EXPECT_NEAR(std::cos(laid.second_arrow->angle), -1, 1e-9) << "points to the centre";
  v.text_inside = 1;
  laid = lay_out(radius, v, {6, 2}, {1, 1});
  EXPECT_EQ(text_of(laid.lines), "(0,0)-(6,0) (14,0)-(18,0) ");

  Dimension diameter = radius;
  diameter.flags = Dimension::diameter;
  diameter.definition = {-20, 0, 0};
  laid = lay_out(diameter, v, {6, 2}, {1, 1});
  EXPECT_EQ(text_of(laid.lines), "(-18,0)-(-4,0) (4,0)-(18,0) ");
  EXPECT_TRUE(laid.first_arrow);
}

TEST(OrdinateLayout, StandsSquareToWhatIsMeasured) {
  Dimension of_x;
  of_x.flags = Dimension::ordinate | Dimension::ordinate_x_flag;
  of_x.first = {5, 0, 0};
  of_x.second = {5, 20, 0};
  const DimensionLayout straight = lay_out(of_x, large(), {6, 2}, {1, 1});
  EXPECT_EQ(text_of(straight.lines), "(5,1)-(5,20) ");
  EXPECT_EQ(std::lround(straight.text_middle.y), 24);
  EXPECT_NEAR(std::abs(std::sin(straight.text_angle)), 1, 1e-9) << "along the line";
  of_x.second = {9, 20, 0};
  EXPECT_EQ(text_of(lay_out(of_x, large(), {6, 2}, {1, 1}).lines),
            "(5,1)-(5,16) (5,16)-(9,18) (9,18)-(9,20) ");
}

TEST(MeasuredText, SaysAnAngleInTheUnitsOfTheStyle) {
  struct Row {
    double degrees;
    std::int32_t units, decimals, zeros;
    const char* expected;
  };
  const Row rows[] = {{45, 0, 0, 0, "45%%d"},
                      {22.5, 0, 2, 2, "22.5%%d"},
                      {0.5, 0, 1, 1, ".5%%d"},
                      {30.504, 1, 2, 0, "30%%d30'"},
                      {30.5041, 1, 4, 0, "30%%d30'15\""},
                      {59.9999, 1, 2, 0, "60%%d0'"},
                      {90, 2, 0, 0, "100g"},
                      {180, 3, 2, 0, "3.14r"}};
  for (const Row& row : rows) {
    const double angle = row.degrees * std::numbers::pi / 180;
    const AngleFormat format{row.units, row.decimals, row.zeros};
    EXPECT_EQ(angle_text(angle, format, {}), row.expected) << row.degrees;
  }
  EXPECT_EQ(measured_angle_text(std::numbers::pi / 2, "<> typ.", {}, {}, TextForm::mtext),
            "90%%d typ.");
  DimVariables v;
  v.decimals = 1;
  EXPECT_EQ(measured_text(5, "", v, TextForm::mtext, "R"), "R5.0");
  v.affix = "r = <>";
  EXPECT_EQ(measured_text(5, "", v, TextForm::mtext, "R"), "r = 5.0");
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
    const Point middle = layout_of(drawing, id).text_middle;
    const double off = norm(middle - dimension.text_position);
    const DimVariables v = variables_of(drawing, id);
    const double near = std::max(0.05 * measurement(dimension), v.text_height * v.factor());
    ++(off <= near ? placed : elsewhere);
  });
  EXPECT_GT(measured_ones, 200);
  EXPECT_GT(placed, 8 * elsewhere);
}

/// The box of what the dimension shows, or would, without the marked points.
Box box_of(const std::vector<Entity>& content) {
  Box box;
  for (const Entity& entity : content) {
    if (entity.common.layer == "Defpoints") continue;
    std::visit(
        [&](const auto& shape) {
          if constexpr (requires { extents(shape); }) box.add(extents(shape));
        },
        entity.body);
  }
  return box;
}

// Angles, radii, diameters and ordinates of the drawings that nobody here made.
TEST(DimensionCorpus, OfOtherKindsIsDrawnAsItsWriterDid) {
  int alike = 0, different = 0;
  for_each_dimension([&](Drawing& drawing, RecordId id, const std::string&) {
    const auto dimension = std::get<Dimension>(drawing.read_body(id));
    const auto block = drawing.find_space(dimension.block);
    if (dimension.is_linear() || !block) return;
    std::vector<Entity> shown;
    for (const RecordId part : drawing.entities(*block)) shown.push_back(drawing.read(part));
    const Box was = box_of(shown), is = box_of(drawn_content(drawing, id));
    const double size = norm(was.max - was.min);
    const bool same = norm(was.min - is.min) < 0.05 * size && norm(was.max - is.max) < 0.05 * size;
    ++(same ? alike : different);
  });
  EXPECT_GT(alike, 2 * different) << alike << " " << different;
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
