#include <gtest/gtest.h>

#include "drawing/drawing.h"
#include "drawing/entities/text.h"
#include "drawing/fonts/font_choice.h"
#include "drawing/fonts/font_files.h"
#include "drawing/fonts/line_measure.h"
#include "drawing/fonts/stroke_font.h"
#include "near.h"

namespace velmar::drawing {
namespace {

double width(const FontName& name, std::string_view text) {
  return measure_line(*choose_font(name), text).width;
}

TEST(StrokeFont, IsChosenByItsName) {
  EXPECT_NEAR(width({"txt", {}}, "HI"), 28.0 / 21, 1e-12);
  EXPECT_NEAR(width({"C:\\fonts\\TXT.SHX", {}}, "HI"), 28.0 / 21, 1e-12);
  EXPECT_NEAR(width({"monotxt.shx", {}}, "II"), 28.0 / 21, 1e-12);
  EXPECT_NEAR(width({"simplex.shx", {}}, "Top"), 49.0 / 21, 1e-12);
  EXPECT_NEAR(width({"no such font", {}}, "Top"), 49.0 / 21, 1e-12);
  EXPECT_LT(width({"isocp.shx", {}}, "Top"), 49.0 / 21);
}

TEST(StrokeFont, ALineWithoutWidthIsDrawnAllTheSame) {
  Text text;
  text.height = 21;
  text.text = "I";
  EXPECT_TRUE(near(extents(text), {{0, 0, 0}, {0, 21, 0}}));
}

TEST(OutlineFont, IsMeasuredAsTheFontItStandsFor) {
  if (!find_font_file("LiberationSans-Regular.ttf") ||
      !choose_font({"arial.ttf", {}})->aligns_by_advance()) {
    GTEST_SKIP() << "FreeType or Liberation Sans is not installed";
  }
  // Advances of Arial in 2048ths of the em, over its capital height of 1466.
  EXPECT_NEAR(width({"arial.ttf", {}}, "X-X "), 3414.0 / 1466, 0.002);
  EXPECT_NEAR(width({{}, "Arial"}, "5"), 1139.0 / 1466, 0.002);
  EXPECT_NEAR(width({"ARIALBD.TTF", {}}, "M"), 1706.0 / 1466, 0.002);
  EXPECT_GT(width({{}, "Arial", true}, "abc"), width({{}, "Arial"}, "abc"));
  EXPECT_NEAR(width({"times.ttf", {}}, "0"), 1024.0 / 1341, 0.002);
  EXPECT_LT(width({"arialn.ttf", {}}, "abc"), width({"arial.ttf", {}}, "abc"));
  EXPECT_TRUE(choose_font({"no such.ttf", {}})->aligns_by_advance());

  const LineMeasure line = measure_line(*choose_font({"arial.ttf", {}}), "Mp");
  EXPECT_GT(line.left, 0.05);  // what is drawn begins behind the place of the pen
  EXPECT_LT(line.right, line.width);
  EXPECT_NEAR(line.bottom, 407.0 / 1466, 0.03);
}

TEST(TextStyle, GivesTheFontToItsTexts) {
  Drawing drawing = Drawing::empty();
  Text text;
  text.text = "HI";
  text.height = 21;
  const RecordId id = drawing.add(SpaceId::model, {Common{}, text});
  const auto right_end = [&] { return extents(std::get<Text>(drawing.read_body(id))).max.x; };
  EXPECT_NEAR(right_end(), 28, 1e-9);  // txt
  const RecordId row = drawing.find_row("STYLE", "STANDARD");
  TextStyle style = drawing.read_text_style(row);
  style.font_file = "simplex.shx";
  drawing.write_text_style(row, style);
  EXPECT_NEAR(right_end(), 22, 1e-9);

  style.name = "Other";
  const RecordId other = drawing.add_text_style("Other");
  EXPECT_EQ(drawing.read_text_style(other).font_file, "txt");
  const Drawing again = Drawing::read(drawing.bytes(), "again");
  EXPECT_EQ(again.text_styles().size(), 2U);
  EXPECT_EQ(again.read_text_style(again.find_row("STYLE", "standard")).font_file, "simplex.shx");
}

}  // namespace
}  // namespace velmar::drawing
