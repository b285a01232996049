#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <nlohmann/json.hpp>
#include <sstream>

#include "drawing/drawing.h"
#include "drawing/extents.h"
#include "file_content.h"

// Every drawing of the corpus against facts that another program found (tests/corpus/README.md).

namespace velmar::drawing {
namespace {

using nlohmann::json;
using Path = std::filesystem::path;
using Counts = std::map<std::string, int>;

const Path corpus = VELMAR_CORPUS;

struct Sample {
  Path drawing;
  json facts;
};

std::vector<Sample> samples(bool sound) {
  std::vector<Sample> found;
  for (const auto& entry : std::filesystem::directory_iterator(corpus / "facts")) {
    json facts = json::parse(contents(entry.path()));
    const Path drawing = corpus / facts["file"].get<std::string>();
    const bool is_sound = facts["load"] == "readfile" && drawing.parent_path().filename() != "bad";
    if (std::filesystem::exists(drawing) && is_sound == sound) found.push_back({drawing, facts});
  }
  return found;
}

void PrintTo(const Sample& sample, std::ostream* out) { *out << sample.drawing; }

class Corpus : public testing::TestWithParam<Sample> {};

std::string test_name(const testing::TestParamInfo<Sample>& sample) {
  std::string name = sample.param.drawing.lexically_relative(corpus).string();
  for (char& c : name) c = std::isalnum(static_cast<unsigned char>(c)) ? c : '_';
  return name;
}

INSTANTIATE_TEST_SUITE_P(Sound, Corpus, testing::ValuesIn(samples(true)), test_name);

/// The facts have 12 significant digits.
double tolerance(double wanted) { return 1e-9 + 1e-11 * std::abs(wanted); }

Counts kinds_in(const Drawing& drawing, SpaceId space) {
  Counts counts;
  for (const RecordId id : drawing.entities(space)) ++counts[std::string(drawing.kind_name(id))];
  return counts;
}

TEST_P(Corpus, AgreesWithTheFactsOnModelSpace) {
  const json& facts = GetParam().facts;
  const Drawing drawing = Drawing::open(GetParam().drawing);
  EXPECT_EQ(kinds_in(drawing, SpaceId::model), facts["model_by_type"].get<Counts>());

  Counts classes;
  std::map<std::pair<std::string, std::string>, int> by_layer;
  for (const RecordId id : drawing.entities(SpaceId::model)) {
    ++classes[std::string(drawing.object_name(id))];
    ++by_layer[{drawing.layer(drawing.record(id).layer).name, std::string(drawing.kind_name(id))}];
  }
  EXPECT_EQ(classes, facts["model_by_class"].get<Counts>());
  for (const json& row : facts["model_by_layer_type"]) {
    if (row[0] == "?") continue;  // a kind whose layer the facts do not tell
    EXPECT_EQ((by_layer[{row[0], row[1]}]), row[2].get<int>()) << row;
  }
}

TEST_P(Corpus, AgreesWithTheFactsOnLayersLayoutsAndBlocks) {
  const json& facts = GetParam().facts;
  const Drawing drawing = Drawing::open(GetParam().drawing);
  std::vector<std::string> layers;
  for (const Layer& layer : drawing.layers()) {
    if (layer.record != RecordId::none) layers.push_back(layer.name);
  }
  EXPECT_EQ(layers, facts["layers"].get<std::vector<std::string>>());

  // For older files the facts show layouts and arrow blocks that are not in them.
  if (drawing.version() < "AC1015") return;
  std::map<std::string, Counts> layouts, wanted;
  for (const Layout& layout : drawing.layouts()) {
    if (layout.space != SpaceId::model) layouts[layout.name] = kinds_in(drawing, layout.space);
  }
  for (const json& layout : facts["layouts"]) wanted[layout[0]] = layout[2].get<Counts>();
  EXPECT_EQ(layouts, wanted);

  std::map<std::string, std::pair<std::size_t, bool>> blocks;
  for (std::size_t i = 0; i < drawing.spaces().size(); ++i) {
    const Space& space = drawing.spaces()[i];
    if (space.is_layout) continue;
    blocks[space.name] = {drawing.entity_count(static_cast<SpaceId>(i)), space.is_xref()};
  }
  constexpr std::size_t most_listed = 300;
  if (facts["blocks"].size() < most_listed) {
    EXPECT_EQ(blocks.size(), facts["blocks"].size());
  }
  for (const json& block : facts["blocks"]) {
    const std::pair<std::size_t, bool> listed{block["entities"], block["isxref"]};
    EXPECT_EQ(blocks[block["name"]], listed) << block["name"];
  }
}

TEST_P(Corpus, AgreesWithTheFactsOnLengthsAreasAndBoxes) {
  const json& facts = GetParam().facts;
  const Drawing drawing = Drawing::open(GetParam().drawing);
  std::map<std::string, std::map<std::string, double>> sums;
  for (const RecordId id : drawing.entities(SpaceId::model)) {
    const Entity entity = drawing.read(id);
    const std::string& layer = entity.common.layer;
    if (const auto* line = std::get_if<Line>(&entity.body))
      sums["line_length"][layer] += length(*line);
    if (const auto* arc = std::get_if<Arc>(&entity.body)) sums["arc_length"][layer] += length(*arc);
    if (const auto* polyline = std::get_if<LwPolyline>(&entity.body)) {
      sums["lwpolyline_area"][layer] += area(*polyline);
    }
    if (const auto* ellipse = std::get_if<Ellipse>(&entity.body)) {
      sums[is_closed(*ellipse) ? "ellipse_area" : "elliptic_arc_area"][layer] += area(*ellipse);
    }
  }
  for (const auto& [what, by_layer] : sums) {
    for (const auto& [layer, sum] : by_layer) {
      const double wanted = facts.contains(what) ? facts[what].value(layer, 0.0) : 0.0;
      EXPECT_NEAR(sum, wanted, 1e-6 + tolerance(wanted)) << what << " on " << layer;
    }
  }
  for (const json& row : facts.value("boxes_sample", json::array())) {
    const RecordId id = drawing.find(parse_handle(row[0].get<std::string>()));
    if (drawing.version() <= "AC1009") continue;  // handles of the facts' own making
    ASSERT_NE(id, RecordId::none) << row;
    auto box = extents(drawing, id);
    if (Body body = drawing.read(id).body; auto* polyline = std::get_if<LwPolyline>(&body)) {
      // The boxes of the facts are of the centre line.
      polyline->constant_width = 0;
      for (BulgeVertex& vertex : polyline->vertices) vertex.start_width = vertex.end_width = 0;
      box = extents(*polyline);
    }
    ASSERT_TRUE(box.has_value()) << row;
    const auto near = [&](const Point& found, const json& wanted) {
      EXPECT_NEAR(found.x, wanted[0], tolerance(wanted[0])) << row;
      EXPECT_NEAR(found.y, wanted[1], tolerance(wanted[1])) << row;
      EXPECT_NEAR(found.z, wanted[2], tolerance(wanted[2])) << row;
    };
    near(box->min, row[2]);
    near(box->max, row[3]);
  }
}

TEST_P(Corpus, IsWrittenBackByteForByte) {
  const Drawing drawing = Drawing::open(GetParam().drawing);
  EXPECT_EQ(drawing.bytes(), contents(GetParam().drawing));
}

/// The one stretch in which two texts differ: its beginning, and how long it is in each.
struct Difference {
  std::size_t begin, in_before, in_after;
};
Difference difference(std::string_view before, std::string_view after) {
  std::size_t begin = 0, same = 0;
  while (begin < before.size() && begin < after.size() && before[begin] == after[begin]) ++begin;
  const std::size_t most = std::min(before.size(), after.size()) - begin;
  while (same < most && before[before.size() - 1 - same] == after[after.size() - 1 - same]) ++same;
  return {begin, before.size() - same - begin, after.size() - same - begin};
}

TEST_P(Corpus, AnEditedTextChangesNothingElse) {
  const std::string before = contents(GetParam().drawing);
  Drawing drawing = Drawing::open(GetParam().drawing);
  for (const RecordId id : drawing.entities(SpaceId::model)) {
    if (drawing.record(id).kind != Kind::text) continue;
    Entity entity = drawing.read(id);
    drawing.write(id, entity);
    ASSERT_EQ(drawing.bytes(), before) << "writing what was read is no edit";
    std::get<Text>(entity.body).text = "Velmar was here";
    drawing.write(id, entity);
    const std::string after = drawing.bytes();
    const Difference found = difference(before, after);
    const Record& record = drawing.record(id);
    const Record& following = drawing.record(id + 1);
    EXPECT_GE(found.begin, record.begin);
    EXPECT_LE(found.begin + found.in_before, following.begin);
    const Drawing again = Drawing::read(after, "again");
    EXPECT_EQ(std::get<Text>(again.read(id).body).text, "Velmar was here");
    return;
  }
}

TEST_P(Corpus, EveryEntityOfAKnownKindReadsAndWritesUnchanged) {
  const std::string before = contents(GetParam().drawing);
  Drawing drawing = Drawing::open(GetParam().drawing);
  for (std::uint32_t i = 0; i < drawing.size(); ++i) {
    const auto id = static_cast<RecordId>(i);
    if (drawing.record(id).space == SpaceId::none) continue;
    drawing.write(id, drawing.read(id));
  }
  EXPECT_TRUE(drawing.changes().empty());
  EXPECT_EQ(drawing.bytes(), before);
  EXPECT_TRUE(drawing.check().empty()) << drawing.check().front().text;
}

TEST_P(Corpus, ALinetypeIsReadAsWithTheOtherCommonValues) {
  const Drawing drawing = Drawing::open(GetParam().drawing);
  for (std::uint32_t i = 0; i < drawing.spaces().size(); ++i) {
    for (const RecordId id : drawing.entities(static_cast<SpaceId>(i))) {
      EXPECT_EQ(drawing.read_linetype_name(id), drawing.read_common(id).linetype);
    }
  }
}

/// Kinds whose geometry is a list of tags, or means nothing but its points.
bool is_area_or_curve(Kind kind) {
  constexpr Kind kinds[] = {Kind::hatch,  Kind::solid, Kind::trace, Kind::face3d,   Kind::spline,
                            Kind::leader, Kind::ray,   Kind::xline, Kind::ole2frame};
  return std::find(std::begin(kinds), std::end(kinds), kind) != std::end(kinds);
}

Box box_of(const Drawing& drawing, RecordId id) { return extents(drawing, id).value_or(Box{}); }

TEST_P(Corpus, AreasAndCurvesMoveThereAndBackAndNothingElse) {
  const std::string before = contents(GetParam().drawing);
  const Drawing original = Drawing::open(GetParam().drawing);
  int tried = 0;
  for (std::uint32_t i = 0; i < original.size() && tried < 60; ++i) {
    const auto id = static_cast<RecordId>(i);
    if (!is_area_or_curve(original.record(id).kind)) continue;
    ++tried;
    Drawing drawing = Drawing::open(GetParam().drawing);
    const Box box = box_of(drawing, id);
    const auto move = [&](const Matrix& matrix) {
      Body body = drawing.read_body(id);
      std::visit(
          [&](auto& shape) {
            if constexpr (requires { transform(shape, matrix); }) transform(shape, matrix);
          },
          body);
      drawing.write_body(id, body);
    };
    move(translation({1024, -512, 0}));
    // What a dimension is drawn with is no entity of its own in what is told of changes.
    const bool is_drawn =
        original.spaces()[index(original.record(id).space)].name.starts_with("*D");
    ASSERT_EQ(drawing.changes().modified.size(), is_drawn ? 0U : 1U);
    const Difference found = difference(before, drawing.bytes());
    EXPECT_GE(found.begin, original.record(id).begin);
    EXPECT_LE(found.begin + found.in_before, original.record(id + 1).begin);
    Drawing again = Drawing::read(drawing.bytes(), "again");
    const Box moved = box_of(again, id);
    move(translation({-1024, 512, 0}));
    const Box back = box_of(drawing, id);
    if (box.empty()) continue;
    const double near = 1e-9 * (1024 + norm(box.min));
    EXPECT_LE(norm(moved.min - box.min - Point{1024, -512, 0}), near);
    EXPECT_LE(norm(back.min - box.min) + norm(back.max - box.max), near);
  }
}

TEST(BadCorpus, OpensWithWarningsOrIsRefusedWithAMessage) {
  for (const auto& entry : std::filesystem::directory_iterator(corpus / "bad")) {
    const std::string name = entry.path().filename().string();
    SCOPED_TRACE(name);
    try {
      const Drawing drawing = Drawing::open(entry.path());
      EXPECT_FALSE(drawing.warnings().empty() && drawing.check().empty());
      EXPECT_EQ(drawing.bytes(), contents(entry.path()));
      if (name == "recover01.dxf") {
        EXPECT_EQ(kinds_in(drawing, SpaceId::model), (Counts{{"LINE", 1441}, {"TEXT", 63}}));
      }
      if (name == "duplicate_handles.dxf") {
        EXPECT_EQ(drawing.entity_count(SpaceId::model), 145u);
      }
    } catch (const Error& error) {
      EXPECT_EQ(name, "diamond-bin.dxf") << error.what();
      EXPECT_NE(std::string(error.what()).find("mark of a binary DXF"), std::string::npos);
    }
  }
}

/// The ENTITIES section with what follows up to the objects.
std::string entities_section(const std::string& bytes) {
  const std::size_t begin = bytes.find("ENTITIES");
  return bytes.substr(begin, bytes.find("OBJECTS", begin) - begin);
}

TEST_P(Corpus, PurgingKeepsEntitiesAndReferences) {
  Drawing drawing = Drawing::open(GetParam().drawing);
  const std::string before = drawing.bytes();
  const std::size_t faults = drawing.broken_references().size();
  for (int pass = 0; drawing.purge() > 0; ++pass) ASSERT_LT(pass, 20);
  EXPECT_TRUE(drawing.changes().modified.empty());
  const std::string after = drawing.bytes();
  EXPECT_EQ(entities_section(after) == entities_section(before), true);
  const Drawing saved = Drawing::read(after, "purged.dxf");
  EXPECT_LE(saved.broken_references().size(), faults);
  EXPECT_EQ(kinds_in(saved, SpaceId::model), GetParam().facts["model_by_type"].get<Counts>());
}

TEST_P(Corpus, SheetsChangePlacesAndBack) {
  Drawing drawing = Drawing::open(GetParam().drawing);
  const std::size_t faults = drawing.broken_references().size();
  std::map<std::string, Counts> wanted;
  for (const Layout& layout : drawing.layouts()) {
    if (layout.space != SpaceId::none) wanted[layout.name] = kinds_in(drawing, layout.space);
  }
  for (const Layout& layout : std::vector(drawing.layouts())) {
    if (layout.space != SpaceId::none) drawing.activate_layout(layout.space);
  }
  const Drawing saved = Drawing::read(drawing.bytes(), "saved.dxf");
  EXPECT_LE(saved.broken_references().size(), faults);
  std::map<std::string, Counts> found;
  for (const Layout& layout : saved.layouts()) {
    if (layout.space != SpaceId::none) found[layout.name] = kinds_in(saved, layout.space);
  }
  EXPECT_EQ(found, wanted);
}

}  // namespace
}  // namespace velmar::drawing
