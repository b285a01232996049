#include <cmath>
#include <numbers>

#include "drawing/entities/text.h"
#include "drawing/fonts/characters.h"
#include "near.h"

namespace velmar::drawing {
namespace {

using std::numbers::pi;

// At height 21 one unit of the font is one drawing unit.
Text text_of(const char* string) {
  Text text;
  text.height = 21;
  text.text = string;
  return text;
}

TEST(PlainText, ResolvesPercentCodes) {
  struct {
    const char *text, *plain;
  } const rows[] = {
      {"%%c20 %%D %%p1", "\u00D820 \u00B0 \u00B11"},
      {"%%uone%%U %%otwo%%K", "one two"},
      {"50%%% 50% 50%%", "50% 50% 50%%"},
      {"%%065%%233%%007", "A\u00E9"},
      {"%%12x%%999%%z", "%%12x%%999%%z"},
      {"%%%%d", "%%d"},
  };
  for (const auto& row : rows) EXPECT_EQ(plain_text(text_of(row.text)), row.plain) << row.text;
}

TEST(TextSize, CountsTheDrawnStrokes) {
  struct {
    const char* text;
    double width, ascent, descent;
  } const rows[] = {
      {"X", 14, 21, 0},
      {"xg", 29, 14, 7},
      {"X  ", 14, 21, 0},
      {"  X", 52, 21, 0},
      {"   ", 0, 0, 0},
      {"", 0, 0, 0},
      {"%%uX", 14, 21, 0},
      {"\u00E4\u00D8", 35, 21, 0},
      {"e\u0301", 12, 14, 0},              // a combining accent takes no room
      {"\u65E5\u672C", 66, 21, 2},         // two squares
      {"\xFFX", 34, 21, 0},                // no UTF-8
      {"X\xE6\x97", 20 + 20 + 14, 21, 0},  // cut short
  };
  for (const auto& row : rows) {
    const TextSize size = measure(text_of(row.text));
    EXPECT_NEAR(size.width, row.width, 1e-9) << row.text;
    EXPECT_NEAR(size.ascent, row.ascent, 1e-9) << row.text;
    EXPECT_NEAR(size.descent, row.descent, 1e-9) << row.text;
  }
  Text narrow = text_of("X");
  narrow.width_factor = 0.5;
  narrow.height = 42;
  EXPECT_NEAR(measure(narrow).width, 14, 1e-9);
}

TEST(TextSize, ACharacterCutShortIsNotReadPastTheEnd) {
  const std::vector<char> bytes{'X', '\xF0'};
  std::string_view rest(bytes.data(), bytes.size());
  EXPECT_EQ(next_character(rest), U'X');
  EXPECT_EQ(next_character(rest), U'\uFFFD');
  EXPECT_TRUE(rest.empty());
}

TEST(TextPlace, DerivesTheInsertionOfEveryJustification) {
  struct {
    std::int32_t horizontal, vertical;
    Point insertion;
  } const rows[] = {
      // "Xp" is 32 wide, 21 high, 7 deep.
      {0, 0, {1, 2, 3}},     {1, 0, {84, 50, 3}},  {2, 0, {68, 50, 3}},    {0, 1, {100, 57, 3}},
      {1, 1, {84, 57, 3}},   {2, 1, {68, 57, 3}},  {0, 2, {100, 39.5, 3}}, {1, 2, {84, 39.5, 3}},
      {2, 2, {68, 39.5, 3}}, {0, 3, {100, 29, 3}}, {1, 3, {84, 29, 3}},    {2, 3, {68, 29, 3}},
      {4, 0, {84, 43, 3}},
  };
  for (const auto& row : rows) {
    Text text = text_of("Xp");
    text.insertion = {1, 2, 3};
    text.alignment_point = {100, 50, 3};
    text.horizontal = row.horizontal;
    text.vertical = row.vertical;
    place(text);
    EXPECT_TRUE(near(text.insertion, row.insertion)) << row.horizontal << " " << row.vertical;
    EXPECT_TRUE(near(drawn_origin(text), row.insertion - Point{0, 7, 0}));
  }
}

TEST(TextPlace, AlignedAndFittedTextsReachFromPointToPoint) {
  for (std::int32_t horizontal : {3, 5}) {
    Text text = text_of("Xp");
    text.insertion = {10, 10, 0};
    text.alignment_point = {10, 74, 0};  // 64 up: twice the width
    text.horizontal = horizontal;
    const bool aligned = horizontal == 3;
    const double deep = aligned ? 14 : 7, high = aligned ? 42 : 21;
    EXPECT_TRUE(near(extents(text), {{10 - high, 10, 0}, {10 + deep, 74, 0}}));
    text.generation = 2;  // backward: in the same place
    EXPECT_TRUE(near(extents(text), {{10 - high, 10, 0}, {10 + deep, 74, 0}}));
    place(text);
    EXPECT_NEAR(text.height, aligned ? 42 : 21, 1e-9);
    EXPECT_NEAR(text.width_factor, aligned ? 1 : 2, 1e-9);
    EXPECT_NEAR(text.rotation, pi / 2, 1e-9);
    EXPECT_TRUE(near(text.insertion, {10, 10, 0}));
    text.alignment_point = text.insertion;
    place(text);
    EXPECT_NEAR(text.height, aligned ? 42 : 21, 1e-9);
  }
}

TEST(TextOutline, TurnsMirrorsAndLeansWithTheText) {
  Text text = text_of("Xp");
  text.insertion = {10, 20, 0};
  EXPECT_TRUE(near(extents(text), {{10, 13, 0}, {42, 41, 0}}));
  text.rotation = pi / 2;
  EXPECT_TRUE(near(extents(text), {{-11, 20, 0}, {17, 52, 0}}));
  text.rotation = 0;
  text.generation = 2;
  EXPECT_TRUE(near(extents(text), {{-22, 13, 0}, {10, 41, 0}}));
  text.generation = 4;
  EXPECT_TRUE(near(extents(text), {{10, -1, 0}, {42, 27, 0}}));
  for (text.generation = 0; text.generation <= 6; text.generation += 2) {
    const auto corners = outline(text);
    EXPECT_TRUE(near(corners[0], extents(text).min));
    EXPECT_GT(cross(corners[1] - corners[0], corners[2] - corners[0]).z, 0);
  }
  text.generation = 0;
  text.oblique = pi / 4;
  EXPECT_TRUE(near(extents(text), {{3, 13, 0}, {63, 41, 0}}));
  text.oblique = 0;
  text.normal = {0, 0, -1};
  text.thickness = 2;
  EXPECT_TRUE(near(extents(text), {{-42, 13, -2}, {-10, 41, 0}}));
  EXPECT_TRUE(outline(text_of("  ")).empty());
}

TEST(TextTransform, TurnsAndScales) {
  Text text = text_of("Xp");
  text.insertion = {1, 0, 0};
  text.horizontal = 1;
  text.alignment_point = {19, 0, 0};
  transform(text, scaling({}, 2) * rotation({}, z_axis, pi / 2));
  EXPECT_TRUE(near(text.insertion, {0, 2, 0}));
  EXPECT_TRUE(near(text.alignment_point, {0, 38, 0}));
  EXPECT_NEAR(text.rotation, pi / 2, 1e-12);
  EXPECT_NEAR(text.height, 42, 1e-12);
  EXPECT_EQ(text.width_factor, 1);
}

TEST(TextTransform, AMirroredTextStaysReadableOnTheImageOfItsBox) {
  struct {
    double rotation;
    Point mirror;
    double result;
  } const rows[] = {
      {0, x_axis, 0},     {0, y_axis, 0},    {30, x_axis, 330}, {30, y_axis, 330},
      {180, x_axis, 180}, {45, x_axis, 315}, {90, y_axis, 90},  {20, {1, -1, 0}, 70},
  };
  for (const auto& row : rows) {
    for (std::int32_t horizontal : {0, 1, 2, 4, 3, 5}) {
      Text text = text_of("Xp");
      text.horizontal = horizontal;
      text.insertion = {10, 20, 0};
      text.rotation = row.rotation * pi / 180;
      const Point way{std::cos(text.rotation), std::sin(text.rotation), 0};
      text.alignment_point = text.insertion + way * 30;
      const Matrix mirror = reflection({3, 4, 0}, row.mirror);
      Box image;
      for (Point corner : outline(text)) image.add(mirror(corner));
      transform(text, mirror);
      EXPECT_NEAR(text.rotation * 180 / pi, row.result, 1e-9) << row.rotation << " " << horizontal;
      EXPECT_EQ(text.generation, 0);
      const Point direction{std::cos(text.rotation), std::sin(text.rotation), 0};
      if (horizontal == 3 || horizontal == 5) {
        EXPECT_TRUE(near(text.alignment_point, text.insertion + direction * 30));
      }
      EXPECT_TRUE(near(extents(text), image)) << row.rotation << " " << horizontal;
    }
  }
}

}  // namespace
}  // namespace velmar::drawing
