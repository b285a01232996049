#include <gtest/gtest.h>

#include <filesystem>

#include "drawing/drawing.h"
#include "sample_text.h"

namespace velmar::drawing {
namespace {

const std::string green_line =
    "0 LINE 5 2F 330 1F 100 AcDbEntity 8 Walls 62 3 100 AcDbLine 10 1.0 20 2.00 30 0.0 11 4.0 21 "
    "6.0 31 0.0 "
    "1001 APP 1000 kept ";
const std::string polyline =
    "0 LWPOLYLINE 5 4F 330 1F 100 AcDbEntity 8 Walls 100 AcDbPolyline 90 2 70 0 10 0.0 20 0.0 91 7 "
    "10 5.0 20 0.0 42 1.0 91 8 ";
const std::string heavy =
    "0 POLYLINE 5 5F 330 1F 100 AcDbEntity 8 Walls 66 1 100 AcDb2dPolyline 10 0.0 20 0.0 30 0.0 "
    "0 VERTEX 5 60 330 5F 100 AcDbEntity 8 Walls 100 AcDbVertex 100 AcDb2dVertex 10 0.0 20 0.0 30 "
    "0.0 "
    "0 VERTEX 5 61 330 5F 100 AcDbEntity 8 Walls 100 AcDbVertex 100 AcDb2dVertex 10 5.0 20 0.0 30 "
    "0.0 "
    "0 SEQEND 5 62 330 5F 100 AcDbEntity 8 Walls ";

/// The record's text as words.
std::string words_of(const Drawing& drawing, const std::string& from, const std::string& to) {
  std::string bytes = drawing.bytes();
  const auto begin = bytes.find("0\r\n" + from);
  bytes = bytes.substr(begin, bytes.find("0\r\n" + to, begin + 1) - begin);
  std::string words;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (bytes[i] == '\n') words += ' ';
    if (bytes[i] != '\r' && bytes[i] != '\n' &&
        !(bytes[i] == ' ' && (words.empty() || words.back() == ' ')))
      words += bytes[i];
  }
  return words;
}

TEST(Write, ChangesOnlyTheValuesThatDiffer) {
  Drawing drawing = Drawing::read(drawing_of("AC1015", green_line), "plan.dxf");
  Entity entity = drawing.read(drawing.find(0x2F));
  std::get<Line>(entity.body).end.x = 4.5;
  entity.common.linetype_scale = 2;
  drawing.write(drawing.find(0x2F), entity);
  EXPECT_EQ(words_of(drawing, "LINE", "ENDSEC"),
            "0 LINE 5 2F 330 1F 100 AcDbEntity 8 Walls 62 3 48 2.0 100 AcDbLine 10 1.0 20 2.00 30 "
            "0.0 11 4.5 21 6.0 31 0.0 "
            "1001 APP 1000 kept ");
}

TEST(Write, MovesVerticesInPlaceAndRewritesThemWhenTheirNumberChanges) {
  Drawing drawing = Drawing::read(drawing_of("AC1015", polyline), "plan.dxf");
  const RecordId id = drawing.find(0x4F);
  Entity entity = drawing.read(id);
  auto& vertices = std::get<LwPolyline>(entity.body).vertices;
  vertices[1].x = 6;
  drawing.write(id, entity);
  EXPECT_NE(words_of(drawing, "LWPOLYLINE", "ENDSEC")
                .find("90 2 70 0 10 0.0 20 0.0 91 7 10 6.0 20 0.0 42 1.0 91 8 "),
            std::string::npos);
  vertices.push_back({7, 8});
  drawing.write(id, entity);
  EXPECT_NE(words_of(drawing, "LWPOLYLINE", "ENDSEC")
                .find("90 3 70 0 10 0.0 20 0.0 10 6.0 20 0.0 42 1.0 10 7.0 20 8.0 "),
            std::string::npos);
  EXPECT_EQ(std::get<LwPolyline>(Drawing::read(drawing.bytes(), "again").read(id).body).vertices,
            vertices);
}

TEST(Write, AddsAndTakesAwayTheVerticesOfAnOldPolyline) {
  Drawing drawing = Drawing::read(drawing_of("AC1015", heavy + green_line), "plan.dxf");
  const RecordId id = drawing.find(0x5F);
  Entity entity = drawing.read(id);
  auto& vertices = std::get<Polyline>(entity.body).vertices;
  vertices[0].position.y = 3;
  vertices.push_back({{9, 9, 0}});
  drawing.write(id, entity);
  EXPECT_EQ(drawing.changes().modified, std::vector<Handle>{0x5F});
  const Drawing grown = Drawing::read(drawing.bytes(), "grown");
  const auto read = std::get<Polyline>(grown.read(grown.find(0x5F)).body).vertices;
  ASSERT_EQ(read.size(), 3u);
  EXPECT_EQ(read[0].position.y, 3);
  EXPECT_EQ(read[2].position, (Point{9, 9, 0}));
  vertices.resize(1);
  drawing.write(id, entity);
  const Drawing shrunk = Drawing::read(drawing.bytes(), "shrunk");
  EXPECT_EQ(std::get<Polyline>(shrunk.read(shrunk.find(0x5F)).body).vertices.size(), 1u);
  EXPECT_TRUE(shrunk.warnings().empty());
}

class Versions : public testing::TestWithParam<const char*> {};
INSTANTIATE_TEST_SUITE_P(All, Versions, testing::Values("AC1009", "AC1015", "AC1032"));

TEST_P(Versions, AddedEntitiesReadBackAsTheyWere) {
  Drawing drawing = Drawing::read(drawing_of(GetParam(), green_line), "plan.dxf");
  Common common;
  common.layer = "Walls";
  common.color = 5;
  Text text;
  text.text = "größer ^ Ω";
  text.rotation = 0.5;
  text.vertical = 2;
  LwPolyline light;
  light.vertices = {{0, 0}, {4, 0, 0, 0, 1}, {4, 4}};
  light.flags = 1;
  Polyline three;
  three.flags = Polyline::is_3d_flag;
  three.vertices = {{{0, 0, 1}}, {{1, 1, 2}}};
  Insert insert;
  insert.block = "DOOR";
  insert.columns = 3;
  for (const Body& body : {Body(Line{{1, 2, 3}, {4, 5, 6}}), Body(Circle{{1, 1, 0}, 7}), Body(text),
                           Body(light), Body(three), Body(insert), Body(PointMark{{1, 2, 3}})}) {
    drawing.add(SpaceId::model, {common, body});
  }
  EXPECT_EQ(drawing.changes().added.size(), 7u);
  const Drawing again = Drawing::read(drawing.bytes(), "again");
  EXPECT_TRUE(again.warnings().empty()) << again.warnings().front().text;
  const auto entities = again.entities(SpaceId::model);
  ASSERT_EQ(entities.size(), 8u);
  EXPECT_EQ(again.read(entities[1]).common.color, 5);
  EXPECT_EQ(again.layer(again.record(entities[1]).layer).name, "Walls");
  EXPECT_EQ(std::get<Line>(again.read(entities[1]).body).end, (Point{4, 5, 6}));
  const auto read_text = std::get<Text>(again.read(entities[3]).body);
  EXPECT_EQ(read_text.text, text.text);
  EXPECT_EQ(read_text.vertical, 2);
  EXPECT_NEAR(read_text.rotation, 0.5, 1e-15);
  EXPECT_EQ(again.object_name(entities[4]),
            again.version() == "AC1009" ? "AcDb2dPolyline" : "AcDbPolyline");
  EXPECT_EQ(again.object_name(entities[5]), "AcDb3dPolyline");
  EXPECT_EQ(std::get<Polyline>(again.read(entities[5]).body).vertices[1].position,
            (Point{1, 1, 2}));
  EXPECT_EQ(again.object_name(entities[6]), "AcDbMInsertBlock");
}

TEST(Erase, TakesAPolylineWithItsVerticesAndNothingElse) {
  Drawing drawing = Drawing::read(drawing_of("AC1015", heavy + green_line), "plan.dxf");
  const std::string without = drawing_of("AC1015", green_line);
  drawing.erase(drawing.find(0x5F));
  EXPECT_EQ(drawing.bytes(), without);
  EXPECT_EQ(drawing.changes().erased, std::vector<Handle>{0x5F});
  EXPECT_NE(drawing.find(0x5F), RecordId::none) << "an erased handle is known as such";
  const RecordId added = drawing.add(SpaceId::model, {{}, Circle{}});
  drawing.erase(added);
  EXPECT_TRUE(drawing.changes().added.empty());
}

TEST(Copy, HasHandlesOfItsOwnThroughout) {
  Drawing drawing = Drawing::read(drawing_of("AC1015", heavy + green_line), "plan.dxf");
  const RecordId copy = drawing.copy(drawing.find(0x5F));
  EXPECT_EQ(drawing.parts(copy).size(), 2u);
  EXPECT_EQ(drawing.whole(drawing.parts(copy)[1]), copy);
  const Drawing again = Drawing::read(drawing.bytes(), "again");
  EXPECT_TRUE(again.warnings().empty());
  EXPECT_EQ(again.entity_count(SpaceId::model), 3u);
  EXPECT_EQ(std::get<Polyline>(again.read(again.entities(SpaceId::model)[2]).body).vertices.size(),
            2u);
}

TEST(Copy, IntoAnotherSpaceBelongsThere) {
  for (const char* const name : {"ezdxf/uncommon.dxf", "acadsharp/sample_AC1009_ascii.dxf"}) {
    Drawing drawing = Drawing::open(std::filesystem::path(VELMAR_CORPUS) / name);
    const auto paper = drawing.find_space("*Paper_Space");
    const SpaceId sheet = paper ? *paper : *drawing.find_space("$PAPER_SPACE");
    const RecordId original = drawing.entities(SpaceId::model).front();
    const auto there = drawing.entity_count(sheet), here = drawing.entity_count(SpaceId::model);
    const RecordId on_sheet = drawing.copy_to(original, sheet);
    const RecordId back = drawing.copy_to(on_sheet, SpaceId::model);
    EXPECT_EQ(drawing.record(on_sheet).space, sheet);
    const Drawing again = Drawing::read(drawing.bytes(), "again");
    EXPECT_EQ(again.entity_count(sheet), there + 1) << name;
    EXPECT_EQ(again.entity_count(SpaceId::model), here + 1) << name;
    EXPECT_EQ(again.record(again.find(drawing.record(back).handle)).space, SpaceId::model);
  }
}

TEST(Layers, AreAddedToTheTableAndRenamedWithTheirEntities) {
  Drawing drawing = Drawing::read(drawing_of("AC1015", green_line + heavy), "plan.dxf");
  LayerRow row;
  row.name = "Doors";
  row.color = 30;
  drawing.add_layer(row);
  const LayerId walls = *drawing.find_layer("WALLS");
  LayerRow renamed = drawing.layer(walls);
  renamed.name = "Mauern";
  renamed.flags |= LayerRow::frozen_flag;
  drawing.write_layer(walls, renamed);
  const Drawing again = Drawing::read(drawing.bytes(), "again");
  ASSERT_EQ(again.layers().size(), 3u);
  EXPECT_EQ(again.layers()[2].name, "Doors");
  EXPECT_EQ(again.layers()[2].color, 30);
  EXPECT_TRUE(again.layers()[1].frozen());
  for (const RecordId id : again.entities(SpaceId::model)) {
    EXPECT_EQ(again.layer(again.record(id).layer).name, "Mauern");
  }
}

TEST(Xdata, IsReplacedForOneApplicationAndKeptForTheOthers) {
  Drawing drawing = Drawing::read(drawing_of("AC1015", green_line), "plan.dxf");
  const RecordId id = drawing.find(0x2F);
  using Tags = std::vector<std::pair<int, std::string>>;
  drawing.write_xdata(id, {{1001, "OTHER"}, {1000, "text"}, {1040, "1.5"}});
  EXPECT_EQ(drawing.read_xdata(id),
            (Tags{{1001, "APP"}, {1000, "kept"}, {1001, "OTHER"}, {1000, "text"}, {1040, "1.5"}}));
  drawing.write_xdata(id, {{1001, "APP"}});
  EXPECT_EQ(drawing.read_xdata(id), (Tags{{1001, "OTHER"}, {1000, "text"}, {1040, "1.5"}}));
  EXPECT_EQ(Drawing::read(drawing.bytes(), "again").table("APPID"),
            (std::vector<std::string>{"ACAD", "OTHER"}));
}

TEST(Find, KnowsEveryHandleFromWhereverItStoodBefore) {
  std::string entities;
  for (const char* handle : {"2F", "31", "40", "4F", "5F", "100", "101", "2FF"}) {
    entities += "0 LINE 5 " + std::string(handle) + " 330 1F 8 0 10 0 20 0 11 1 21 1 ";
  }
  const Drawing drawing = Drawing::read(drawing_of("AC1015", entities), "plan.dxf");
  for (Handle before = 0; before <= 0x301; before += 0x17) {
    for (Handle wanted = 0; wanted <= 0x301; ++wanted) {
      drawing.find(before);
      const RecordId found = drawing.find(wanted);
      bool exists = false;
      for (std::uint32_t i = 0; i < drawing.size() && wanted != 0; ++i) {
        exists = exists || drawing.record(static_cast<RecordId>(i)).handle == wanted;
      }
      ASSERT_EQ(found != RecordId::none, exists) << wanted << " after " << before;
      if (exists) {
        ASSERT_EQ(drawing.record(found).handle, wanted);
      }
    }
  }
}

TEST(EmptyDrawing, OpensWithoutWarningsAndTakesEntities) {
  Drawing drawing = Drawing::empty();
  EXPECT_TRUE(drawing.warnings().empty());
  EXPECT_TRUE(drawing.check().empty());
  ASSERT_EQ(drawing.layouts().size(), 2u);
  drawing.add(SpaceId::model, {{}, Line{{}, {3, 4, 0}}});
  EXPECT_EQ(Drawing::read(drawing.bytes(), "again").entity_count(SpaceId::model), 1u);
}

}  // namespace
}  // namespace velmar::drawing
