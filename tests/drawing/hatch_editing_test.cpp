#include <gtest/gtest.h>

#include "drawing/drawing.h"
#include "drawing/error.h"
#include "sample_text.h"

namespace velmar::drawing {
namespace {

const std::string head =
    "0 HATCH 5 2F 330 1F 100 AcDbEntity 8 Walls 100 AcDbHatch 10 0.0 20 0.0 30 0.00 ";
const std::string before_loops = "210 0.0 220 0.0 230 1.0 2 ANSI31 70 0 71 1 91 2 ";
const std::string polyline_loop =
    "92 7 72 1 73 1 93 3 10 0.0 20 0.00 10 4.0 20 0.0 42 0.5 10 4.0 20 3.0 97 1 330 4F ";
const std::string edge_loop =
    "92 1 93 3 72 1 10 1.0 20 1.0 11 2.0 21 1.0 72 2 10 1.0 20 1.0 40 1.0 50 0.0 51 90.0 73 1 "
    "72 4 94 1 73 0 74 0 95 4 96 2 40 0.0 40 0.0 40 1.0 40 1.0 10 1.0 20 2.0 10 1.0 20 1.0 97 0 "
    "97 0 ";
const std::string tail =
    "75 1 76 1 52 0.0 41 1.50 77 0 78 1 53 45.0 43 0.0 44 0.0 45 -0.1 46 0.1 79 2 49 0.5 49 -0.25 "
    "47 0.01 98 1 10 1.0 20 1.0 450 0 451 0 460 0.0 470 LINEAR 1001 APP 1070 5";
const std::string hatch = head + before_loops + polyline_loop + edge_loop + tail;

struct HatchSample {
  explicit HatchSample(const std::string& entity = hatch)
      : drawing(Drawing::read(drawing_of("AC1024", entity), "plan.dxf")), id(drawing.find(0x2F)) {}

  Hatch read() const { return std::get<Hatch>(drawing.read_body(id)); }
  /// The hatch is written as these words, but for blanks before numbers.
  bool writes(const std::string& words) const {
    std::string bytes;
    for (const char c : drawing.bytes()) {
      if (c != ' ' || (!bytes.empty() && bytes.back() != '\n')) bytes += c;
    }
    return bytes == drawing_of("AC1024", words);
  }

  Drawing drawing;
  RecordId id;
};

std::string with_replaced(std::string text, const std::string& from, const std::string& to) {
  return text.replace(text.find(from), from.size(), to);
}

TEST(HatchRecord, ReadsAllSortsOfLoops) {
  const Hatch read = HatchSample().read();
  ASSERT_EQ(read.loops.size(), 2U);
  EXPECT_EQ(read.loops[0].vertices[1].bulge, 0.5);
  EXPECT_EQ(read.loops[0].sources, std::vector<std::string>{"4F"});
  ASSERT_EQ(read.loops[1].edges.size(), 3U);
  const auto& spline = std::get<HatchSpline>(read.loops[1].edges[2]);
  EXPECT_TRUE(spline.lists_fit_points);
  EXPECT_EQ(spline.control_points[0].position, (Point{1, 2, 0}));
  EXPECT_EQ(read.lines[0].dashes, (std::vector<double>{0.5, -0.25}));
  EXPECT_EQ(read.seeds, (std::vector<Point>{{1, 1, 0}}));
}

TEST(HatchRecord, ChangesOnlyTheValuesThatDiffer) {
  HatchSample sample;
  sample.drawing.write_body(sample.id, sample.read());
  EXPECT_TRUE(sample.writes(hatch)) << "writing what was read is no edit";
  Hatch changed = sample.read();
  changed.loops[0].vertices[0].x = 0.5;
  changed.loops[0].vertices[0].bulge = 1;
  std::get<HatchArc>(changed.loops[1].edges[1]).radius = 3;
  changed.lines[0].dashes[1] = -1;
  HatchSample moved;
  changed.loops[0].vertices[0].bulge = 0;
  moved.drawing.write_body(moved.id, changed);
  std::string words = with_replaced(hatch, "10 0.0 20 0.00 10 4.0", "10 0.5 20 0.00 10 4.0");
  words = with_replaced(words, "40 1.0 50", "40 3.0 50");
  EXPECT_TRUE(moved.writes(with_replaced(words, "49 -0.25", "49 -1.0")));
}

TEST(HatchRecord, WritesTheLoopsAnewWhenTheirTagsAreOthers) {
  HatchSample sample;
  Hatch changed = sample.read();
  changed.loops.pop_back();
  changed.loops[0].vertices.pop_back();
  changed.loops[0].sources.clear();
  changed.associative = 0;
  sample.drawing.write_body(sample.id, changed);
  EXPECT_TRUE(sample.writes(head +
                            "210 0.0 220 0.0 230 1.0 2 ANSI31 70 0 71 0 91 1 92 7 72 1 73 1 93 2 "
                            "10 0.0 20 0.0 42 0.0 10 4.0 20 0.0 42 0.5 97 0 " +
                            tail));
}

TEST(HatchRecord, OfASolidOneHasNoPattern) {
  HatchSample sample;
  Hatch changed = sample.read();
  changed.pattern = "SOLID";
  changed.solid = 1;
  changed.lines.clear();
  sample.drawing.write_body(sample.id, changed);
  std::string words = with_replaced(hatch, "2 ANSI31 70 0", "2 SOLID 70 1");
  words = with_replaced(words,
                        "52 0.0 41 1.50 77 0 78 1 53 45.0 43 0.0 44 0.0 45 -0.1 46 0.1 79 2 49 0.5 "
                        "49 -0.25 ",
                        "");
  EXPECT_TRUE(sample.writes(words));
  changed.solid = 0;
  changed.scale = 2;
  changed.lines = user_pattern(0, 2, false);
  sample.drawing.write_body(sample.id, changed);
  words = with_replaced(words, "2 SOLID 70 1", "2 SOLID 70 0");
  EXPECT_TRUE(
      sample.writes(with_replaced(words, "47 0.01",
                                  "52 0.0 41 2.0 77 0 78 1 53 0.0 43 0.0 44 0.0 45 0.0 46 2.0 "
                                  "79 0 47 0.01")));
}

TEST(HatchRecord, ThatIsNotSoundSaysWhereAndIsKept) {
  const std::pair<std::string, std::string> faults[] = {
      {"93 3 10", "93 4 10"},     {"93 3 10", "93 2000000000 10"},
      {"93 3 10", "93 -1 10"},    {"91 2", "91 900"},
      {"72 4 94", "72 9 94"},     {"95 4", "95 400"},
      {"50 0.0 51", "50 x 51"},   {"78 1 53", "78 7 53"},
      {"10 4.0 20 3.0 97", "97"}, {"92 7 72 1", "92 6 72 1"},
      {"79 2", "79 5"},
  };
  for (const auto& [from, to] : faults) {
    const HatchSample sample(with_replaced(hatch, from, to));
    SCOPED_TRACE(to);
    try {
      const Hatch read = sample.read();
      EXPECT_EQ(from, "92 7 72 1") << "only flags may be other ones";
    } catch (const Error& error) {
      EXPECT_NE(std::string(error.what()).find("HATCH #2F"), std::string::npos) << error.what();
    }
    EXPECT_TRUE(sample.writes(with_replaced(hatch, from, to)));
  }
}

}  // namespace
}  // namespace velmar::drawing
