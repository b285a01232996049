// Drawings of the corpus in the other form and in other releases.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <map>

#include "drawing/drawing.h"
#include "near.h"
#include "sample_text.h"

namespace velmar::drawing {
namespace {

namespace fs = std::filesystem;

std::vector<fs::path> drawings() {
  std::vector<fs::path> found;
  for (const auto& entry : fs::recursive_directory_iterator(VELMAR_CORPUS)) {
    const bool is_bad = entry.path().parent_path().filename() == "bad";
    if (entry.path().extension() == ".dxf" && !is_bad) found.push_back(entry.path());
  }
  std::ranges::sort(found);
  return found;
}

std::string name_of(const testing::TestParamInfo<fs::path>& sample) {
  std::string name =
      sample.param.parent_path().filename().string() + "_" + sample.param.stem().string();
  for (char& c : name) c = std::isalnum(static_cast<unsigned char>(c)) ? c : '_';
  return name;
}

class Convert : public testing::TestWithParam<fs::path> {};
INSTANTIATE_TEST_SUITE_P(Corpus, Convert, testing::ValuesIn(drawings()), name_of);

void expect_same_values(const Drawing& a, const Drawing& b) {
  ASSERT_EQ(a.size(), b.size());
  for (std::uint32_t i = 0; i < a.size(); ++i) {
    const auto id = static_cast<RecordId>(i);
    ASSERT_EQ(a.kind_name(id), b.kind_name(id)) << i;
    if (a.kind_name(id) == "EOF") continue;
    ASSERT_EQ(a.tags(id), b.tags(id)) << a.kind_name(id) << " " << handle_text(a.record(id).handle);
  }
}

std::string trimmed(const std::string& text) {
  return text.substr(std::min(text.find_first_not_of(' '), text.size()));
}

/// What is asked for as text, whatever the value's kind.
void expect_same_texts(const Drawing& a, const Drawing& b) {
  const HeaderVariables header = a.header_variables();
  ASSERT_EQ(header.size(), b.header_variables().size());
  for (const auto& [name, value] : b.header_variables()) {
    ASSERT_EQ(trimmed(header.at(name)), trimmed(value)) << name;
    ASSERT_EQ(b.header(name), value);
  }
  constexpr std::array kinds{"STYLE", "DIMSTYLE", "LAYER", "LAYOUT", "VIEWPORT"};
  for (std::uint32_t i = 0; i < a.size(); ++i) {
    const auto id = static_cast<RecordId>(i);
    if (std::ranges::find(kinds, a.kind_name(id)) == kinds.end()) continue;
    for (const TagValue& tag : a.tags(id)) {
      if (tag.code == 310 || tag.code == 1004) continue;  // binary data
      ASSERT_EQ(trimmed(a.row_text(id, tag.code)), trimmed(b.row_text(id, tag.code)))
          << a.kind_name(id) << ' ' << handle_text(a.record(id).handle) << ' ' << tag.code;
    }
  }
}

/// Binary data stands as digits in text and as itself in binary form: compared within one form.
TEST_P(Convert, KeepsEveryValueInTheOtherFormAndBack) {
  const Drawing drawing = Drawing::open(GetParam());
  if (GetParam().parent_path().filename() == "derived") {
    // Its colours of dimensions are numbers of 32 bits where 16 are meant.
    EXPECT_THROW(drawing.convert({{}, true}), Error);
    return;
  }
  const Conversion other = drawing.convert({{}, !drawing.is_binary()});
  EXPECT_TRUE(other.losses.empty());
  const Drawing there = Drawing::read(other.bytes, "there");
  EXPECT_EQ(there.is_binary(), !drawing.is_binary());
  const Drawing back = Drawing::read(there.convert({{}, drawing.is_binary()}).bytes, "back");
  expect_same_values(drawing, back);
  expect_same_texts(there, back);
  // From here on the numbers have our own form, and the bytes are the same too.
  EXPECT_EQ(back.convert({{}, !drawing.is_binary()}).bytes, other.bytes);
}

using Texts = std::map<std::string, int>;

Texts faults_of(const Drawing& drawing) {
  Texts texts;
  for (const auto& list : {drawing.check(), drawing.broken_references()}) {
    for (const Warning& fault : list) ++texts[fault.text];
  }
  return texts;
}

/// What was wrong before may still be; nothing else.
void expect_no_new_faults(const Texts& before, const Drawing& drawing, std::string_view what) {
  if (!before.empty()) return;
  for (const auto& [text, count] : faults_of(drawing)) ADD_FAILURE() << what << ": " << text;
}

std::map<std::string, std::size_t> kinds_in_model(const Drawing& drawing) {
  std::map<std::string, std::size_t> counts;
  for (const RecordId id : drawing.entities(SpaceId::model)) {
    ++counts[std::string(drawing.kind_name(id))];
  }
  return counts;
}

/// Entities that are said to be dropped or to become others are all that is missing.
void expect_all_told(const Drawing& before, const Conversion& conversion, const Drawing& after) {
  const auto left = kinds_in_model(after);
  for (const auto& [kind, count] : kinds_in_model(before)) {
    std::size_t found = left.contains(kind) ? left.at(kind) : 0;
    for (const Loss& loss : conversion.losses) {
      if (loss.what == kind || loss.what == "hidden entities") found += loss.count;
    }
    EXPECT_LE(count, found) << kind << " in " << after.version();
  }
}

TEST_P(Convert, IsSoundInEveryReleaseAndBackAndTellsOfWhatGoes) {
  const Drawing drawing = Drawing::open(GetParam());
  const Texts before = faults_of(drawing);
  for (const Release& release : releases()) {
    const Conversion conversion = drawing.convert({release.version, {}});
    const Drawing there = Drawing::read(conversion.bytes, std::string(release.name));
    EXPECT_EQ(there.version(), release.version);
    EXPECT_LE(there.warnings().size(), drawing.warnings().size()) << release.name;
    expect_all_told(drawing, conversion, there);
    expect_no_new_faults(before, there, release.name);
    const Drawing back = Drawing::read(there.convert({r2018, {}}).bytes, "back");
    expect_no_new_faults(before, back, std::string(release.name) + " and back");
    // The newest release takes all that an older one had, but models of solids.
    auto had = kinds_in_model(there);
    for (const char* const solid : {"3DSOLID", "BODY", "REGION"}) {
      if (release.version < r2013) had.erase(solid);
    }
    EXPECT_EQ(kinds_in_model(back), had) << release.name;
  }
}

const Loss* find_loss(const Conversion& conversion, std::string_view what) {
  const auto found = std::ranges::find(conversion.losses, what, &Loss::what);
  return found == conversion.losses.end() ? nullptr : &*found;
}

Drawing drawing_with(std::string_view version, std::string_view entities) {
  return Drawing::read(drawing_of(version, entities), "sample");
}

TEST(ConvertToR12, ApproximatesCurvesWithinTheirChords) {
  const Drawing drawing = drawing_with(
      "AC1015",
      "0 ELLIPSE 5 40 330 1F 100 AcDbEntity 8 Walls 62 3 100 AcDbEllipse 10 5 20 5 30 1 11 4 21 0 "
      "31 0 40 0.5 41 0 42 6.283185307179586 "
      "0 LWPOLYLINE 5 41 330 1F 100 AcDbEntity 8 0 100 AcDbPolyline 90 3 70 1 38 2 10 0 20 0 42 1 "
      "10 4 20 0 10 4 20 4 1001 ACAD 1000 note");
  const Conversion conversion = drawing.convert({r12, {}});
  EXPECT_FALSE(conversion.is_lossless());
  ASSERT_NE(find_loss(conversion, "ELLIPSE"), nullptr);
  EXPECT_EQ(find_loss(conversion, "ELLIPSE")->examples, std::vector<Handle>{0x40});
  EXPECT_TRUE(find_loss(conversion, "LWPOLYLINE")->harmless);

  const Drawing there = Drawing::read(conversion.bytes, "there");
  const auto ellipse = there.read(there.find(0x40));
  EXPECT_EQ(ellipse.common.layer, "Walls");
  EXPECT_EQ(ellipse.common.color, 3);
  const auto& curve = std::get<Polyline>(ellipse.body);
  EXPECT_TRUE(curve.closed());
  for (const PolylineVertex& vertex : curve.vertices) {
    const Point p = vertex.position;
    EXPECT_NEAR((p.x - 5) * (p.x - 5) / 16 + (p.y - 5) * (p.y - 5) / 4, 1, 1e-9);
    EXPECT_EQ(p.z, 1);
  }
  EXPECT_GT(curve.vertices.size(), 16u);
  const auto flat = std::get<Polyline>(there.read(there.find(0x41)).body);
  ASSERT_EQ(flat.vertices.size(), 3u);
  EXPECT_EQ(flat.vertices[0].bulge, 1);
  EXPECT_EQ(flat.elevation_point.z, 2);
  EXPECT_EQ(there.read_xdata(there.find(0x41)).size(), 2u);
}

TEST(ConvertToR12, WritesMultilineTextsLineByLineWhereTheyStand) {
  const Drawing drawing = drawing_with(
      "AC1015",
      "0 MTEXT 5 40 330 1F 100 AcDbEntity 8 0 100 AcDbMText 10 1 20 9 30 0 40 2 41 0 71 1 72 1 "
      "1 one\\Ptwo 50 90");
  const Drawing there = Drawing::read(drawing.convert({r12, {}}).bytes, "there");
  std::vector<std::string> lines;
  for (const RecordId id : there.entities(SpaceId::model)) {
    const auto text = std::get<Text>(there.read(id).body);
    lines.push_back(text.text);
    EXPECT_NEAR(text.rotation, std::numbers::pi / 2, 1e-12);
    EXPECT_EQ(text.height, 2);
    // Lines go on to the right where they are written upwards.
    EXPECT_NEAR(text.insertion.x, lines.size() == 1 ? 3 : 3 + 10.0 / 3, 1e-9);
    EXPECT_NEAR(text.insertion.y, 9, 1e-9);
  }
  EXPECT_EQ(lines, (std::vector<std::string>{"one", "two"}));
}

TEST(ConvertToR12, ShortensNamesEverywhereAndKeepsThemApart) {
  Drawing drawing = drawing_with("AC1015", "");
  const std::string common(31, 'A');
  for (const std::string& name : {common + " one", common + " two"}) {
    LayerRow row;
    row.name = name;
    drawing.add_layer(row);
    Entity line;
    line.common.layer = name;
    line.body = Line{};
    drawing.add(SpaceId::model, line);
  }
  const Conversion conversion = drawing.convert({r12, {}});
  EXPECT_FALSE(conversion.is_lossless());
  const Drawing there = Drawing::read(conversion.bytes, "there");
  std::vector<std::string> named;
  for (const RecordId id : there.entities(SpaceId::model)) {
    const Layer& layer = there.layer(there.record(id).layer);
    EXPECT_NE(layer.record, RecordId::none) << layer.name;
    EXPECT_LE(layer.name.size(), 31u);
    named.push_back(layer.name);
  }
  ASSERT_EQ(named.size(), 2u);
  EXPECT_NE(named[0], named[1]);
}

TEST(ConvertCodePages, KeepsCharactersByPageOrByNumber) {
  const std::string latin = "caf\u00e9", chinese = "\u4e2d";
  Drawing drawing = Drawing::read(drawing_of("AC1032", ""), "sample");
  for (const std::string& content : {latin, chinese}) {
    Entity text;
    Text body;
    body.text = content;
    text.body = body;
    drawing.add(SpaceId::model, text);
  }
  const Conversion older = drawing.convert({r2000, {}});
  EXPECT_TRUE(older.is_lossless());
  EXPECT_NE(older.bytes.find("caf\xe9\r\n"), std::string::npos);
  EXPECT_NE(older.bytes.find("\\U+4E2D"), std::string::npos);
  EXPECT_FALSE(drawing.convert({r12, {}}).is_lossless());

  const Drawing back =
      Drawing::read(Drawing::read(older.bytes, "older").convert({r2018, true}).bytes, "back");
  std::vector<std::string> texts;
  for (const RecordId id : back.entities(SpaceId::model)) {
    texts.push_back(std::get<Text>(back.read(id).body).text);
  }
  EXPECT_EQ(texts, (std::vector{latin, chinese}));
}

TEST(ConvertBetweenReleases, TakesTrueColoursAndGradientsAway) {
  const Drawing drawing =
      drawing_with("AC1032",
                   "0 LINE 5 40 330 1F 100 AcDbEntity 8 0 420 16744448 440 33554559 100 "
                   "AcDbLine 10 0 20 0 "
                   "30 0 11 1 21 0 31 0 "
                   "0 MULTILEADER 5 41 330 1F 100 AcDbEntity 8 0 100 AcDbMLeader 270 2");
  const Conversion to_2004 = drawing.convert({r2004, {}});
  EXPECT_EQ(find_loss(to_2004, "true colours"), nullptr);
  ASSERT_NE(find_loss(to_2004, "MULTILEADER"), nullptr);
  const Conversion to_2000 = drawing.convert({r2000, {}});
  EXPECT_EQ(find_loss(to_2000, "true colours")->count, 1u);
  EXPECT_EQ(find_loss(to_2000, "transparencies")->count, 1u);
  const Drawing there = Drawing::read(to_2000.bytes, "there");
  EXPECT_EQ(there.read_common(there.find(0x40)).true_color, -1);
  EXPECT_EQ(there.read_common(there.find(0x40)).color, 30);
  EXPECT_EQ(there.find(0x41), RecordId::none);
}

TEST(ConvertForm, RefusesWhatBinaryHasNoRoomFor) {
  const Drawing drawing = drawing_with(
      "AC1015", "0 LINE 5 40 330 1F 100 AcDbEntity 8 0 62 many 100 AcDbLine 10 0 20 0 30 0");
  try {
    drawing.convert({{}, true});
    FAIL() << "a word where a number belongs was written";
  } catch (const Error& error) {
    EXPECT_NE(std::string(error.what()).find("#40"), std::string::npos) << error.what();
    EXPECT_NE(std::string(error.what()).find("many"), std::string::npos) << error.what();
  }
}

}  // namespace
}  // namespace velmar::drawing
