#include "drawing/entities/mtext.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <map>
#include <numbers>

#include "drawing/drawing.h"
#include "drawing/extents.h"
#include "drawing/fonts/font_choice.h"
#include "near.h"
#include "sample_text.h"

namespace velmar::drawing {
namespace {

using std::numbers::pi;

// At height 21 one unit of the stroke font is one drawing unit: X is 14 of 20, a blank 19.
MText text_of(const std::string& content) {
  MText text;
  text.height = 21;
  text.text = content;
  return text;
}

/// Runs as "text@x,y" with whole numbers.
std::string runs(const MText& text) {
  std::string found;
  for (const TextRun& run : layout(text).runs) {
    const auto whole = [](double number) { return std::to_string(std::lround(number)); };
    found += (found.empty() ? "" : " ") + run.text + "@" + whole(run.origin.x) + "," +
             whole(run.origin.y);
  }
  return found;
}

TEST(MTextLayout, PutsRunsWhereCodesSay) {
  struct {
    const char *text, *runs;
  } const rows[] = {
      {"X", "X@0,-21"},
      {"X\\PX", "X@0,-21 X@0,-56"},
      {"X\n\nX", "X@0,-21 X@0,-91"},
      {"X%%dX\\U+", "X\u00B0X\\U+@0,-21"},
      {"\\{\\\\\\}", "{\\}@0,-21"},
      {"X\\~X", "X\u00A0X@0,-21"},
      {"{\\LX}X", "X@0,-21 X@20,-21"},
      {"{\\H42;X}X", "X@0,-42 X@40,-42"},
      {"X{\\H2x;X}", "X@0,-42 X@20,-42"},
      {"\\A1;X{\\H2x;X}", "X@0,-32 X@20,-42"},  // the small one beside the middle
      {"X\\P{\\H2x;X}\\PX", "X@0,-21 X@0,-91 X@0,-126"},
      {"\\W2;X\\T2;X", "X@0,-21 X@40,-21"},
      {"\\S1/2;", "1@5,-21 2@0,-50"},
      {"\\A1;\\S1^2;", "1@5,-6 2@0,-36"},
      {"X\\S1#2;", "X@0,-34 1@20,-21 2@47,-34"},
      {"\\pl2,i-1;X X", "X@21,-21  @41,-21 X@60,-21"},
      {"\\zX}\\", "\\zX\\@0,-21"},  // no codes at all
      {"\\C1X", "\\C1X@0,-21"},
      {"", ""},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(runs(text_of(row.text)), row.runs) << row.text;
  }
}

TEST(MTextLayout, TakesAnyBytesInLinearTime) {
  std::string bad;
  for (const char* part : {"{", "}", "\\C", "\\S^", "\\H1e308x;", "\\C1e300;", "\\Qx;", "\\p",
                           "\xE6", "\\f|b1;", "\\T0;", "\t", "%%", "\\"}) {
    for (int i = 0; i < 20000; ++i) bad += part;
    MText text = text_of(bad);
    text.width = 100;
    text.height = bad.size() % 2 == 0 ? 0 : 21;
    const Box box = extents(text);
    EXPECT_TRUE(box.empty() || std::isfinite(norm(box.max - box.min))) << part;
  }
}

TEST(MTextLayout, BreaksLinesWhereTheyWouldBeTooLong) {
  MText text = text_of("a word wrap example a b c d e");
  text.width = 255;
  const Box box = extents(text);
  EXPECT_TRUE(near(box, {{0, -21 - 70, 0}, {236, 0, 0}}));  // three lines, "d e" the last
  text.width = 1;
  text.text = "XX XX";  // words are not cut
  EXPECT_TRUE(near(extents(text), {{0, -56, 0}, {34, 0, 0}}));
  text.text = "\u65E5\u672C";  // but between wide characters
  EXPECT_TRUE(near(extents(text), {{0, -58, 0}, {32, 0, 0}}));
  text.text = "X\\~X";
  EXPECT_EQ(layout(text).runs.size(), 1U);
}

TEST(MTextLayout, HangsOnItsAttachmentPoint) {
  for (std::int32_t attachment = 1; attachment <= 9; ++attachment) {
    MText text = text_of("X\\PXX");  // 34 wide, 56 high
    text.insertion = {100, 50, 0};
    text.attachment = attachment;
    const int column = (attachment - 1) % 3, row = (attachment - 1) / 3;
    const Box expected{{100 - 17.0 * column, 50 - 56 + 28.0 * row, 0},
                       {134 - 17.0 * column, 50 + 28.0 * row, 0}};
    EXPECT_TRUE(near(extents(text), expected)) << attachment;
    for (std::int32_t other = 1; other <= 9; ++other) {
      MText moved = text;
      attach(moved, other);
      EXPECT_TRUE(near(extents(moved), expected)) << attachment << " to " << other;
    }
  }
}

TEST(MTextTransform, TurnsScalesAndMirrorsOntoTheImageOfItsBox) {
  MText text = text_of("Xp\\PX");
  text.insertion = {10, 20, 0};
  text.width = 200;
  MText turned = text;
  transform(turned, scaling({}, 2) * rotation({}, z_axis, pi / 2));
  EXPECT_NEAR(rotation(turned), pi / 2, 1e-12);
  EXPECT_NEAR(turned.height, 42, 1e-12);
  EXPECT_NEAR(turned.width, 400, 1e-12);
  EXPECT_TRUE(near(turned.insertion, {-40, 20, 0}));
  for (const Point mirror : {x_axis, y_axis, Point{1, 1, 0}}) {
    MText mirrored = text;
    set_rotation(mirrored, pi / 6);
    const Matrix map = reflection({3, 4, 0}, mirror);
    Box image;
    for (Point corner : outline(mirrored)) image.add(map(corner));
    transform(mirrored, map);
    Box box;
    for (Point corner : outline(mirrored)) box.add(corner);
    EXPECT_TRUE(near(box, image));
    EXPECT_EQ(mirrored.normal, z_axis);
  }
}

Body only_body(const Drawing& drawing) {
  return drawing.read_body(drawing.entities(SpaceId::model).front());
}

constexpr std::string_view mtext_head = "0 MTEXT 5 50 330 1F 100 AcDbEntity 8 0 100 AcDbMText ";

TEST(MTextRecord, LongTextsStandInPieces) {
  const std::string a(250, 'a'), b(250, 'b');
  Drawing drawing = Drawing::read(
      drawing_of("AC1015", std::string(mtext_head) + "10 1 20 2 30 0 40 2.50 41 0 71 1 72 1 3 " +
                               a + "\\U+00 3 C4" + b + " 1 end 73 1 44 1"),
      "mtext");
  const RecordId id = drawing.entities(SpaceId::model).front();
  const std::string before = drawing.bytes();
  auto text = std::get<MText>(drawing.read_body(id));
  EXPECT_EQ(text.text, a + "\u00C4" + b + "end");  // though its character was cut in two
  drawing.write_body(id, text);
  EXPECT_EQ(drawing.bytes(), before);

  text.text = a + "short";
  drawing.write_body(id, text);
  EXPECT_NE(drawing.bytes().find("  3\r\n" + a + "\r\n  1\r\nshort\r\n73"), std::string::npos);
  EXPECT_NE(drawing.bytes().find("40\r\n2.50\r\n"), std::string::npos);
  text.text = std::string(249, 'x') + "\u65E5";  // not in the code page: seven bytes
  drawing.write_body(id, text);
  EXPECT_NE(drawing.bytes().find("  3\r\n" + std::string(249, 'x') + "\r\n  1\r\n\\U+65E5\r\n"),
            std::string::npos);
  EXPECT_EQ(std::get<MText>(only_body(drawing)).text, text.text);
}

TEST(MTextRecord, TheEmbeddedObjectFollowsAndIsNotTakenForTheText) {
  Drawing drawing =
      Drawing::read(drawing_of("AC1032", std::string(mtext_head) +
                                             "10 1 20 2 30 0 40 2 71 1 72 1 1 X 101 "
                                             "Embedded~Object 70 1 10 1 20 0 30 0 11 1 21 2 31 0 "
                                             "40 77 44 3 1001 ACAD 1000 kept"),
                    "mtext");
  const RecordId id = drawing.entities(SpaceId::model).front();
  auto text = std::get<MText>(drawing.read_body(id));
  EXPECT_EQ(text.width, 0);
  EXPECT_EQ(text.spacing_factor, 1);
  EXPECT_TRUE(near(direction(text), x_axis));
  transform(text, rotation({}, z_axis, pi / 2));
  text.width = 5;
  drawing.write_body(id, text);
  const std::string after = drawing.bytes();
  const std::string object = after.substr(after.find("Embedded"));
  const auto has = [&](std::string_view words) {
    return object.find(dxf_text(words)) != object.npos;
  };
  EXPECT_TRUE(has(" 11 -2.0 21 1.0 31 0")) << object;
  EXPECT_TRUE(has(" 40 5.0 44 3 1001 ACAD")) << object;
  EXPECT_NEAR(rotation(std::get<MText>(only_body(drawing))), pi / 2, 1e-12);
}

TEST(MTextRecord, ARotationCountsWhereThereIsNoDirection) {
  const Drawing drawing = Drawing::read(
      drawing_of("AC1015", std::string(mtext_head) + "10 0 20 0 30 0 40 1 71 1 72 1 1 X 50 90"),
      "mtext");
  const auto text = std::get<MText>(only_body(drawing));
  EXPECT_TRUE(near(direction(text), y_axis));
}

TEST(MTextRecord, R12CannotHoldOne) {
  Drawing drawing = Drawing::read(
      dxf_text("0 SECTION 2 ENTITIES 0 POINT 8 0 10 0 20 0 0 ENDSEC 0 EOF"), "old.dxf");
  for (const Body& body : {Body(MText{}), Body(Tolerance{})}) {
    try {
      drawing.add(SpaceId::model, {Common{}, body});
      ADD_FAILURE() << "it was added";
    } catch (const Error& error) {
      EXPECT_NE(std::string(error.what()).find("R12"), std::string::npos) << error.what();
    }
  }
}

/// Width and height as the program that saved the file had laid the text out, by handle.
std::map<std::string, std::pair<double, double>> laid_out(const std::filesystem::path& path) {
  std::map<std::string, std::pair<double, double>> sizes;
  std::ifstream file(path);
  std::string code, value, kind, handle;
  while (std::getline(file, code) && std::getline(file, value)) {
    const int number = std::stoi(code);
    if (value.ends_with('\r')) value.pop_back();
    if (number == 0) kind = value;
    if (kind != "MTEXT") continue;
    if (number == 5) handle = value;
    if (number == 42) sizes[handle].first = std::stod(value);
    if (number == 43) sizes[handle].second = std::stod(value);
  }
  return sizes;
}

TEST(MTextLayout, IsAsLargeAsOtherProgramsLaidItOut) {
  if (!choose_font({"arial.ttf", {}})->aligns_by_advance()) {
    GTEST_SKIP() << "FreeType or fonts are not installed";
  }
  const std::filesystem::path corpus = VELMAR_CORPUS;
  int compared = 0;
  for (const char* name :
       {"ezdxf/text.dxf", "ezdxf/hatches_2.dxf", "ezdxf/uncommon.dxf", "netdxf/sample.dxf"}) {
    const Drawing drawing = Drawing::open(corpus / name);
    for (const auto& [handle, size] : laid_out(corpus / name)) {
      MText text = std::get<MText>(drawing.read_body(drawing.find(parse_handle(handle))));
      const TextLayout made = layout(text);
      const std::string file = made.runs.front().font->file();
      const bool has_font = text.look.font->aligns_by_advance()
                                ? file.find("LiberationSans") != file.npos
                                : !drawing.read_text_style(drawing.find_row("STYLE", text.style))
                                       .font_file.ends_with("ttf");
      constexpr std::int32_t downward = 3;
      const bool in_columns = handle == "534" || handle == "646";
      if (!has_font || text.flow == downward || in_columns) continue;
      const Box box = plane_extents(made);
      const double height = std::max(box.max.y, 0.0) - box.min.y;  // from the first line's top on
      EXPECT_NEAR(height, size.second, 0.03 * size.second) << name << handle;
      ++compared;
      if (text.text.starts_with(' ')) continue;  // counted there
      EXPECT_NEAR(box.max.x - box.min.x, size.first, 0.03 * size.first) << name << handle;
    }
  }
  EXPECT_GE(compared, 15);
}

}  // namespace
}  // namespace velmar::drawing
