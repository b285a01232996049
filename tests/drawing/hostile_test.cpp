#include <gmock/gmock.h>

#include <set>

#include "drawing/drawing.h"
#include "drawing/extents.h"
#include "drawing/hatch_lines.h"
#include "sample_text.h"

// Drawings made to take all time or memory. Most of these tests would not end, were the work not
// bounded.

namespace velmar::drawing {
namespace {

using testing::HasSubstr;

std::string block(const std::string& name, const std::string& content) {
  return "0 BLOCK 8 0 2 " + name + " 70 0 10 0 20 0 30 0 3 " + name + " 1 @ " + content +
         "0 ENDBLK 8 0 ";
}
std::string insert(const std::string& name, const std::string& more = "") {
  return "0 INSERT 8 0 2 " + name + " 10 0 20 0 30 0 " + more;
}
const std::string bare_line = "0 LINE 8 0 10 1 20 2 30 0 11 4 21 6 31 0 ";

Drawing with_blocks(const std::string& blocks, const std::string& entities) {
  return Drawing::read(dxf_text("0 SECTION 2 BLOCKS " + blocks + "0 ENDSEC 0 SECTION 2 ENTITIES " +
                                entities + "0 ENDSEC 0 EOF"),
                       "hostile.dxf");
}
RecordId first(const Drawing& drawing) { return drawing.entities(SpaceId::model).at(0); }

template <class Step>
std::string refusal(Step step) {
  try {
    step();
  } catch (const Error& error) {
    return error.what();
  }
  return "not refused";
}

TEST(Hostile, BlocksThatDrawTooMuchAreRefusedBeforeTheyAreDrawn) {
  std::string doubled = block("B40", bare_line), chain = block("B100", bare_line);
  for (int i = 0; i < 40; ++i) {
    const std::string next = insert("B" + std::to_string(i + 1));
    doubled += block("B" + std::to_string(i), next + next);
  }
  for (int i = 0; i < 100; ++i) {
    chain += block("B" + std::to_string(i), insert("B" + std::to_string(i + 1)));
  }
  const std::string itself = block("A", bare_line + insert("B0")) + block("B0", insert("A"));
  const struct {
    std::string blocks, said;
  } cases[] = {{doubled, "draws more than 4000000 entities through its blocks"},
               {chain, "stands in more than 64 blocks within each other"},
               {itself, "draws the block \"B0\" within itself"}};
  for (const auto& [blocks, said] : cases) {
    const Drawing drawing = with_blocks(blocks, insert("B0"));
    EXPECT_THAT(refusal([&] { extents(drawing, first(drawing)); }), HasSubstr(said));
    EXPECT_THAT(refusal([&] { outlines(drawing, first(drawing)); }), HasSubstr(said));
  }
}

TEST(Hostile, TheBoxOfAnArrayTakesItsCornersAlone) {
  const std::string array = insert("A", "50 90 70 32767 71 32767 44 10 45 -10 ");
  const Drawing lines = with_blocks(block("A", bare_line), array);
  const auto box = extents(lines, first(lines));
  ASSERT_TRUE(box);
  EXPECT_NEAR(box->min.x, -6, 1e-6);
  EXPECT_NEAR(box->max.x, 327660 - 2, 1e-6);
  EXPECT_NEAR(box->min.y, 1, 1e-6);
  EXPECT_NEAR(box->max.y, 327660 + 4, 1e-6);
  EXPECT_THAT(refusal([&] { outlines(lines, first(lines)); }), HasSubstr("draws more than"));
  const std::string definition = "0 ATTDEF 8 0 10 0 20 0 40 1 1 x 3 p 2 T 70 0 ";
  const Drawing unseen = with_blocks(block("A", definition), array);
  EXPECT_TRUE(outlines(unseen, first(unseen)).empty());
}

TEST(Hostile, NamesByTheTensOfThousandsAreFoundAndStayFoundWhenRenamed) {
  constexpr int count = 40'000;
  std::string blocks, entities;
  for (int i = 0; i < count; ++i) {
    const std::string number = std::to_string(i);
    blocks += block("Block" + number, "");
    entities += "0 KIND" + number + " 8 Layer" + number + " ";
  }
  Drawing drawing = with_blocks(blocks, entities);
  EXPECT_EQ(drawing.layers().size(), static_cast<std::size_t>(count));
  const auto last = drawing.find_space("bLOCK39999");
  ASSERT_TRUE(last);
  drawing.rename_block(*last, "Other");
  EXPECT_EQ(drawing.find_space("OTHER"), last);
  EXPECT_FALSE(drawing.find_space("Block39999"));
  EXPECT_FALSE(drawing.find_layer("Block1"));
}

TEST(Hostile, KindsBeyondTheirNumbersShareTheLast) {
  constexpr int count = 70'000;
  std::string entities;
  for (int i = 0; i < count; ++i) entities += "0 KIND" + std::to_string(i) + " 8 0 ";
  const Drawing drawing = with_blocks("", entities);
  const auto all = drawing.entities(SpaceId::model);
  ASSERT_EQ(all.size(), static_cast<std::size_t>(count));
  EXPECT_EQ(drawing.kind_name(all[60'000]), "KIND60000");
  EXPECT_EQ(drawing.record(all[69'998]).kind, drawing.record(all[69'999]).kind);
}

TEST(Hostile, EachOfManyFaultsIsToldWithItsLine) {
  std::string entities;
  constexpr int count = 3000;
  for (int i = 0; i < count; ++i) entities += "0 LINE 8 0 10 one 20 2 11 4 21 6 ";
  const Drawing drawing = with_blocks("", entities);
  const auto all = drawing.entities(SpaceId::model);
  const auto said_of = [&](std::size_t i) { return refusal([&] { drawing.read(all[i]); }); };
  const auto line_of = [](std::size_t i) {  // behind 10 lines, of 12 the sixth
    return "line " + std::to_string(10 + 12 * i + 6) + " ";
  };
  for (const std::size_t i : {2999u, 0u, 1500u, 1499u, 2998u}) {
    EXPECT_THAT(said_of(i), HasSubstr(line_of(i)));
  }
}

TEST(Hostile, HandlesAtTheEndOfTheirRangeLeaveRoomForNewOnes) {
  const std::string most = "FFFFFFFFFFFFFFFF", longest(1000, 'F');
  const auto entity = [](const std::string& handle) {
    return "0 CIRCLE 5 " + handle + " 330 1F 100 AcDbEntity 8 0 100 AcDbCircle 10 1 20 2 40 5 ";
  };
  std::string bytes =
      drawing_of("AC1015", entity(most) + entity("2F") + entity(longest) +
                               entity("FFFFFFFFFFFFFFF") + entity("2F") + entity("0"));
  bytes.replace(bytes.find("500"), 3, most);
  Drawing drawing = Drawing::read(bytes, "hostile.dxf");
  EXPECT_EQ(drawing.bytes(), bytes);
  drawing.add(SpaceId::model, {{}, Line{{}, {1, 1, 0}}});
  std::set<Handle> handles;
  for (const RecordId id : drawing.entities(SpaceId::model)) {
    handles.insert(drawing.record(id).handle);
    EXPECT_EQ(drawing.find(drawing.record(id).handle), id);
  }
  EXPECT_EQ(handles.size(), 7u);
  EXPECT_FALSE(handles.contains(0));
}

TEST(Hostile, CountsThatLieAreNotBelieved) {
  const std::string kinds[] = {
      "0 LWPOLYLINE 100 AcDbEntity 8 0 100 AcDbPolyline 90 N 70 1 10 0 20 0 10 1 20 1 ",
      "0 SPLINE 100 AcDbEntity 8 0 100 AcDbSpline 70 8 71 3 72 N 73 N 74 N 40 0 40 0 10 1 20 1 ",
      "0 SPLINE 100 AcDbEntity 8 0 100 AcDbSpline 70 8 71 N 72 2 73 1 74 0 40 0 40 1 10 1 20 1 ",
      "0 LEADER 100 AcDbEntity 8 0 100 AcDbLeader 3 S 76 N 10 0 20 0 30 0 ",
      "0 HATCH 100 AcDbEntity 8 0 100 AcDbHatch 10 0 20 0 2 A 70 0 71 0 91 N 92 2 72 0 73 1 93 N "
      "10 0 20 0 97 N 75 0 76 1 52 0 41 1 77 0 78 N 53 45 43 0 44 0 45 0 46 1 79 N 49 1 98 N ",
      "0 HATCH 100 AcDbEntity 8 0 100 AcDbHatch 10 0 20 0 2 A 70 1 71 0 91 1 92 1 93 1 72 4 94 N "
      "73 0 74 0 95 N 96 N 40 0 10 0 20 0 97 0 75 0 76 1 98 0 "};
  for (const std::string& kind : kinds) {
    for (const std::string count : {"4294967295", "-1", "2147483647", "9223372036854775807"}) {
      std::string words = kind;
      for (std::size_t at = 0; (at = words.find(" N ", at)) != words.npos;) {
        words.replace(at, 3, " " + count + " ");
      }
      const Drawing drawing = Drawing::read(drawing_of("AC1015", words), "hostile.dxf");
      const std::string said = refusal([&] { outlines(drawing, first(drawing)); });
      EXPECT_THAT(said, testing::AnyOf("not refused", HasSubstr("hostile.dxf, line "))) << words;
    }
  }
}

TEST(Hostile, CurvesOfMereRoundingAreMeasuredAllTheSame) {
  Ellipse ellipse;
  ellipse.ratio = 0.5;
  ellipse.start_parameter = 1e9;
  ellipse.end_parameter = 2e9 + 1;
  EXPECT_GT(length(ellipse), 0);
  EXPECT_LT(length(ellipse), 2 * std::numbers::pi);
  Nurbs wild{.degree = 25, .knots = {}, .control_points = {}};
  for (int i = 0; i < 60; ++i) {
    wild.control_points.push_back({{i % 2 == 0 ? 1e12 : -1e12, 1e-3 * i, 0}});
  }
  for (int i = 0; i < 86; ++i) wild.knots.push_back(std::clamp(i - 25, 0, 35));
  EXPECT_GT(length(wild), 1e12);
}

TEST(Hostile, APatternFartherThanItsLinesCanBeCountedIsRefused) {
  for (const double at : {1e16, 1e17, 1e300}) {
    Hatch hatch;
    HatchLoop loop;
    loop.flags = HatchLoop::polyline_flag;
    const double size = at / 1e15;
    loop.vertices = {{at, at}, {at + size, at}, {at + size, at + size}, {at, at + size}};
    hatch.loops = {loop};
    hatch.solid = 0;
    hatch.lines = user_pattern(0, 1, false);
    EXPECT_THAT(refusal([&] { hatch_lines(hatch); }), HasSubstr("too far")) << at;
  }
}

}  // namespace
}  // namespace velmar::drawing
