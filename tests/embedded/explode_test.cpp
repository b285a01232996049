#include <filesystem>
#include <numbers>
#include <optional>

#include "drawing/extents.h"
#include "embedded/entity_scene.h"
#include "embedded/error_numbers.h"

namespace velmar::embedded {
namespace {

using drawing::Box;
using drawing::Drawing;
using drawing::RecordId;
using drawing::SpaceId;

using std::numbers::pi;

using Objects = std::vector<std::shared_ptr<host::Object>>;

Objects explode(const EntityScene& scene, const std::string& handle) {
  Objects objects;
  const Value list = scene.call(handle, Member::Explode);
  for (const Value& item : *list.if_is<basic::List>()) {
    objects.push_back(EntityScene::as_object(item));
  }
  return objects;
}

std::string text(const std::shared_ptr<host::Object>& object, Member member) {
  return basic::convert<std::string>(object->get(member));
}

/// Model space after another block "PART" with base point (1,0) and these entities (from handle 50
/// on) was put before the block DOOR.
EntityScene with_part(const std::string& content, const std::string& model) {
  std::string dxf = drawing_text(model);
  const std::string begin = tags("0 BLOCK\n5 22\n"), row = tags("0 BLOCK_RECORD\n5 1E\n");
  dxf.insert(dxf.find(begin), tags("0 BLOCK\n5 4E\n330 1D\n100 AcDbEntity\n8 0\n"
                                   "100 AcDbBlockBegin\n2 PART\n70 0\n10 1\n20 0\n30 0\n3 PART\n"
                                   "1 \n" +
                                   content +
                                   "0 ENDBLK\n5 4F\n330 1D\n100 AcDbEntity\n8 0\n"
                                   "100 AcDbBlockEnd\n"));
  dxf.insert(dxf.find(row), tags("0 BLOCK_RECORD\n5 1D\n100 AcDbSymbolTableRecord\n"
                                 "100 AcDbBlockTableRecord\n2 PART\n"));
  return EntityScene(Drawing::read(dxf, "part.dxf"));
}

std::string inside(const std::string& kind, const std::string& handle, const std::string& common) {
  return "0 " + kind + "\n5 " + handle + "\n330 1D\n100 AcDbEntity\n" + common;
}

std::string reference(const std::string& fields, const std::string& common = "8 0\n") {
  return "0 INSERT\n5 30\n330 1F\n100 AcDbEntity\n" + common + "100 AcDbBlockReference\n2 PART\n" +
         fields;
}

const std::string part_line =
    inside("LINE", "50", "8 0\n") + "100 AcDbLine\n10 1\n20 0\n30 0\n11 3\n21 0\n31 0\n";
const std::string part_circle =
    inside("CIRCLE", "51", "8 Walls\n62 3\n") + "100 AcDbCircle\n10 1\n20 0\n30 0\n40 2\n";

TEST(Explode, OfAPolylineGivesItsSegmentsInItsPlane) {
  const EntityScene scene(
      head("LWPOLYLINE", "30", "Walls") +
      "62 5\n100 AcDbPolyline\n90 4\n70 1\n43 0.5\n38 3\n10 0\n20 0\n10 4\n20 0\n42 1\n10 4\n20 "
      "2\n"
      "42 -1\n10 0\n20 2\n210 0\n220 0\n230 -1\n");
  const Objects made = explode(scene, "30");
  ASSERT_EQ(made.size(), 4U);
  EXPECT_TRUE(scene.model()->get(Member::Count) == Value(5)) << "the original stays";
  const char* const kinds[] = {"AcDbLine", "AcDbArc", "AcDbArc", "AcDbLine"};
  for (std::size_t i = 0; i < made.size(); ++i) {
    EXPECT_EQ(text(made[i], Member::ObjectName), kinds[i]);
    EXPECT_EQ(text(made[i], Member::Layer), "Walls");
    EXPECT_TRUE(made[i]->get(Member::Color) == Value(5));
  }
  expect_value(made[0]->get(Member::EndPoint), at(-4, 0, -3), "line");
  expect_value(made[1]->get(Member::Center), at(-4, 1, -3), "half circle");
  expect_value(made[1]->get(Member::StartPoint), at(-4, 0, -3), "counter-clockwise as the way");
  expect_value(made[2]->get(Member::Radius), 2.0, "half circle over the top");
  expect_value(made[2]->get(Member::EndPoint), at(-4, 2, -3), "clockwise: from its end");
  expect_value(made[3]->get(Member::StartPoint), at(0, 2, -3), "closing segment");
}

TEST(Explode, OfA3dPolylineGivesLines) {
  const EntityScene scene;
  const Objects made = explode(scene, "39");
  ASSERT_EQ(made.size(), 1U);
  expect_value(made[0]->get(Member::EndPoint), at(1, 2, 2), "line");
}

TEST(Explode, OfAReferencePlacesItsBlock) {
  struct Row {
    std::string fields;
    Point start, end;  // of the line from (1,0) to (3,0); the base point is (1,0)
  };
  const Row rows[] = {
      {"10 10\n20 5\n30 1\n", {10, 5, 1}, {12, 5, 1}},
      {"10 10\n20 5\n30 0\n41 3\n42 3\n43 3\n50 90\n", {10, 5, 0}, {10, 11, 0}},
      {"10 10\n20 5\n30 0\n41 -1\n", {10, 5, 0}, {8, 5, 0}},
      {"10 10\n20 5\n30 0\n42 -1\n50 30\n", {10, 5, 0}, {10 + std::sqrt(3), 6, 0}},
      {"10 10\n20 5\n30 2\n210 0\n220 0\n230 -1\n", {-10, 5, -2}, {-12, 5, -2}},
      // Of the normal (1,0,0) the plane's x axis is y, its y axis is z.
      {"10 10\n20 5\n30 2\n210 1\n220 0\n230 0\n", {2, 10, 5}, {2, 12, 5}},
  };
  for (const Row& row : rows) {
    const EntityScene scene = with_part(part_line, reference(row.fields));
    const Objects made = explode(scene, "30");
    ASSERT_EQ(made.size(), 1U);
    const EntityScene saved = scene.saved();
    const std::string line = text(made[0], Member::Handle);
    expect_value(saved.get(line, Member::StartPoint), at(row.start.x, row.start.y, row.start.z),
                 row.fields);
    expect_value(saved.get(line, Member::EndPoint), at(row.end.x, row.end.y, row.end.z),
                 row.fields);
  }
}

TEST(Explode, OfAnArrayGivesEveryCell) {
  const EntityScene scene =
      with_part(part_line, reference("10 0\n20 0\n30 0\n41 2\n50 90\n70 3\n71 2\n44 10\n45 100\n"));
  const Objects made = explode(scene, "30");
  ASSERT_EQ(made.size(), 6U);
  expect_value(made[2]->get(Member::EndPoint), at(0, 24), "third column");
  expect_value(made[5]->get(Member::EndPoint), at(-100, 24), "its second row");
  const EntityScene huge =
      with_part(part_line, reference("10 0\n20 0\n30 0\n70 30000\n71 30000\n44 1\n45 1\n"));
  EXPECT_EQ(failure_of([&] { explode(huge, "30"); }), invalid_input);
}

TEST(Explode, GivesWhatIsByBlockTheReferencesLook) {
  const EntityScene scene = with_part(
      part_line + part_circle + inside("LINE", "52", "8 Walls\n62 0\n6 BYBLOCK\n370 -2\n") +
          "100 AcDbLine\n10 0\n20 0\n30 0\n11 1\n21 0\n31 0\n1001 APP\n1000 kept\n",
      reference("10 0\n20 0\n30 0\n", "8 Locked\n62 6\n6 DASHED\n370 35\n"));
  const Objects made = explode(scene, "30");
  ASSERT_EQ(made.size(), 3U);
  EXPECT_EQ(text(made[0], Member::Layer), "Locked");
  EXPECT_TRUE(made[0]->get(Member::Color) == Value(256));
  EXPECT_EQ(text(made[1], Member::Layer), "Walls");
  EXPECT_TRUE(made[1]->get(Member::Color) == Value(3));
  EXPECT_EQ(text(made[2], Member::Layer), "Walls");
  EXPECT_TRUE(made[2]->get(Member::Color) == Value(6));
  EXPECT_EQ(text(made[2], Member::Linetype), "DASHED");
  EXPECT_TRUE(made[2]->get(Member::Lineweight) == Value(35));
  EXPECT_NE(scene.bytes().find("kept", scene.bytes().find("kept") + 1), std::string::npos);
  EXPECT_TRUE(scene.get("52", Member::Color) == Value(0)) << "the definition stays";
  EXPECT_TRUE(made[0]->get(Member::OwnerID) == scene.get("30", Member::OwnerID));
}

TEST(Explode, WithUnequalScalesGivesEllipses) {
  const std::string arc = inside("ARC", "53", "8 0\n") +
                          "100 AcDbCircle\n10 1\n20 0\n30 0\n40 1\n100 AcDbArc\n50 0\n51 90\n";
  const std::string bulged = inside("LWPOLYLINE", "54", "8 0\n") +
                             "100 AcDbPolyline\n90 2\n70 1\n10 1\n20 -1\n42 1\n10 1\n20 1\n";
  const EntityScene scene =
      with_part(part_circle + arc + bulged, reference("10 0\n20 0\n30 0\n41 -2\n42 3\n43 1\n"));
  const Objects made = explode(scene, "30");
  ASSERT_EQ(made.size(), 4U);
  expect_value(made[0]->get(Member::MajorRadius), 6.0, "circle");
  expect_value(made[0]->get(Member::RadiusRatio), 2.0 / 3, "circle");
  expect_value(made[1]->get(Member::StartPoint), at(0, 3), "mirrored arc begins at its end");
  expect_value(made[1]->get(Member::EndPoint), at(-2, 0), "and ends at its beginning");
  expect_value(made[2]->get(Member::Area), pi * 6 / 2, "half an ellipse");
  EXPECT_EQ(text(made[3], Member::ObjectName), "AcDbLine");
  expect_value(made[3]->get(Member::Length), 6.0, "closing segment");

  const EntityScene old(Drawing::read(
      tags("0 SECTION\n2 BLOCKS\n0 BLOCK\n8 0\n2 PART\n70 0\n10 0\n20 0\n30 0\n3 PART\n"
           "0 LINE\n8 0\n10 0\n20 0\n30 0\n11 1\n21 0\n31 0\n"
           "0 CIRCLE\n8 0\n10 0\n20 0\n30 0\n40 1\n0 ENDBLK\n8 0\n0 ENDSEC\n"
           "0 SECTION\n2 ENTITIES\n0 INSERT\n5 30\n8 0\n2 PART\n10 5\n20 0\n30 0\n42 2\n"
           "0 INSERT\n5 31\n8 0\n2 PART\n10 5\n20 0\n30 0\n0 ENDSEC\n0 EOF\n"),
      "old.dxf"));
  const std::string before = old.bytes();
  EXPECT_EQ(failure_of([&] { explode(old, "30"); }), no_such_action) << "R12 has no ellipses";
  EXPECT_EQ(old.bytes(), before);
  const Objects round = explode(old, "31");
  ASSERT_EQ(round.size(), 2U);
  const EntityScene saved = old.saved();
  expect_value(saved.get(text(round[1], Member::Handle), Member::Center), at(5, 0), "R12");
}

/// A reference to DOOR, turned, with an attribute, within PART.
const std::string nested = inside("INSERT", "54", "8 0\n") +
                           "66 1\n100 AcDbBlockReference\n2 DOOR\n10 1\n20 0\n30 0\n41 2\n50 30\n" +
                           inside("ATTRIB", "55", "8 0\n") +
                           "100 AcDbText\n10 2\n20 0\n30 0\n40 1\n1 D1\n100 AcDbAttribute\n"
                           "2 NUMBER\n70 0\n" +
                           inside("SEQEND", "56", "8 0\n");

TEST(Explode, KeepsNestedReferences) {
  const EntityScene scene =
      with_part(nested, reference("10 10\n20 0\n30 0\n41 -3\n42 3\n43 3\n", "8 Walls\n"));
  const Objects made = explode(scene, "30");
  ASSERT_EQ(made.size(), 1U);
  const EntityScene saved = scene.saved();
  const std::string door = text(made[0], Member::Handle);
  EXPECT_TRUE(saved.get(door, Member::ObjectName) == Value("AcDbBlockReference"));
  expect_value(saved.get(door, Member::InsertionPoint), at(10, 0), "insertion");
  const Objects lines = explode(saved, door);
  expect_value(lines.at(0)->get(Member::EndPoint), at(10 - 3 * std::sqrt(3), 3), "mirrored line");
  const Value attributes = saved.call(door, Member::GetAttributes);
  ASSERT_EQ(attributes.if_is<basic::List>()->size(), 1U);
  const auto attribute = EntityScene::as_object(attributes.if_is<basic::List>()->front());
  EXPECT_EQ(text(attribute, Member::TextString), "D1");
  EXPECT_EQ(text(attribute, Member::Layer), "Walls");
  expect_value(attribute->get(Member::Height), 3.0, "attribute");
  expect_value(saved.get("55", Member::Height), 1.0, "the definition's stays");
}

TEST(Explode, RefusesBeforeAnythingIsAdded) {
  const std::string note = inside("MLINE", "57", "8 0\n") + "100 AcDbMline\n2 STANDARD\n40 1\n";
  const auto refused = [](const std::string& content, const std::string& fields,
                          std::int32_t number, const std::string& named) {
    const EntityScene scene = with_part(part_line + content, reference(fields));
    const std::string before = scene.bytes();
    try {
      explode(scene, "30");
      FAIL() << fields;
    } catch (const basic::Failure& failure) {
      EXPECT_EQ(failure.number, number);
      EXPECT_NE(failure.description.find(named), std::string::npos) << failure.description;
    }
    EXPECT_EQ(scene.bytes(), before);
  };
  refused(note, "10 5\n20 0\n30 0\n", no_such_action, "MLINE");
  refused(nested, "10 0\n20 0\n30 0\n41 2\n", no_such_action, "oblique");
  refused("", "10 0\n20 0\n30 0\n41 0\n", invalid_input, "");

  // Where nothing moves, what is not understood is copied as it is.
  const EntityScene scene = with_part(note, reference("10 1\n20 0\n30 0\n", "8 Walls\n"));
  const Objects made = explode(scene, "30");
  ASSERT_EQ(made.size(), 1U);
  EXPECT_EQ(text(made[0], Member::ObjectName), "AcDbMline");
  EXPECT_EQ(text(made[0], Member::Layer), "Walls");
}

TEST(Explode, OfWhatHasNoBlockHereGivesNothing) {
  const EntityScene missing(head("INSERT", "30") +
                            "100 AcDbBlockReference\n2 NOWHERE\n10 0\n20 0\n30 0\n");
  EXPECT_TRUE(explode(missing, "30").empty());
  std::string dxf =
      drawing_text(head("INSERT", "30") + "100 AcDbBlockReference\n2 DOOR\n10 0\n20 0\n30 0\n");
  const std::string flags = tags("2 DOOR\n70 0\n");
  dxf.replace(dxf.find(flags), flags.size(), tags("2 DOOR\n70 4\n"));
  EXPECT_TRUE(explode(EntityScene(Drawing::read(dxf, "xref.dxf")), "30").empty());
}

TEST(Explode, LeavesTheDefinitionsOfAttributes) {
  const auto attdef = [](const std::string& handle, const std::string& tag,
                         const std::string& flags) {
    return inside("ATTDEF", handle, "8 0\n") + "100 AcDbText\n10 2\n20 0\n30 0\n40 1\n1 " + tag +
           " value\n100 AcDbAttributeDefinition\n280 0\n3 " + tag + "?\n2 " + tag + "\n70 " +
           flags + "\n";
  };
  const EntityScene scene = with_part(attdef("58", "NUMBER", "0") + attdef("59", "MAKER", "2"),
                                      reference("10 0\n20 0\n30 0\n41 2\n42 2\n43 2\n"));
  const Value constants = scene.call("30", Member::GetConstantAttributes);
  ASSERT_EQ(constants.if_is<basic::List>()->size(), 1U);
  const auto constant = EntityScene::as_object(constants.if_is<basic::List>()->front());
  EXPECT_EQ(text(constant, Member::TagString), "MAKER");
  EXPECT_EQ(text(constant, Member::TextString), "MAKER value");
  EXPECT_EQ(text(constant, Member::PromptString), "MAKER?");
  EXPECT_TRUE(constant->get(Member::Constant) == Value(true));

  const Objects made = explode(scene, "30");
  ASSERT_EQ(made.size(), 2U);
  const EntityScene saved = scene.saved();
  const std::string number = text(made[0], Member::Handle);
  EXPECT_TRUE(saved.get(number, Member::ObjectName) == Value("AcDbAttributeDefinition"));
  EXPECT_TRUE(saved.get(number, Member::TagString) == Value("NUMBER"));
  expect_value(saved.get(number, Member::InsertionPoint), at(2, 0), "place");
  expect_value(saved.get(number, Member::Height), 2.0, "height");
}

// What the drawings of the corpus explode to covers what was there (tests/corpus/README.md).

std::vector<EntityScene> corpus() {
  std::vector<EntityScene> scenes;
  for (const char* const folder : {"ezdxf", "acadsharp", "jscad"}) {
    const auto root = std::filesystem::path(VELMAR_CORPUS) / folder;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root)) {
      if (entry.path().extension() == ".dxf") scenes.emplace_back(Drawing::open(entry.path()));
    }
  }
  return scenes;
}

std::optional<Objects> try_explode(const EntityScene& scene, RecordId id) {
  try {
    return explode(scene, drawing::handle_text(scene.document->drawing.record(id).handle));
  } catch (const basic::Failure& failure) {
    EXPECT_EQ(failure.number, no_such_action) << failure.description;
    return std::nullopt;
  }
}

Box extents_of(const Drawing& drawing, const Objects& objects) {
  Box box;
  for (const auto& object : objects) {
    const RecordId id = drawing.find(drawing::parse_handle(text(object, Member::Handle)));
    if (const auto part = extents(drawing, id)) box.add(*part);
  }
  return box;
}

TEST(ExplodeCorpus, SegmentsAreAsLongAsTheirPolylines) {
  int done = 0;
  for (const EntityScene& scene : corpus()) {
    const Drawing& drawing = scene.document->drawing;
    for (const RecordId id : drawing.entities(SpaceId::model)) {
      const drawing::Body body = drawing.read_body(id);
      double whole = 0;
      if (const auto* polyline = std::get_if<drawing::LwPolyline>(&body)) whole = length(*polyline);
      if (const auto* polyline = std::get_if<drawing::Polyline>(&body)) whole = length(*polyline);
      if (whole == 0) continue;
      const auto segments = try_explode(scene, id);
      ASSERT_TRUE(segments);
      double sum = 0;
      for (const auto& segment : *segments) {
        const bool is_line = text(segment, Member::ObjectName) == "AcDbLine";
        const Value size = segment->get(is_line ? Member::Length : Member::ArcLength);
        sum += basic::convert<double>(size);
      }
      EXPECT_NEAR(sum, whole, 1e-6 * whole)
          << drawing.path() << " " << drawing::handle_text(drawing.record(id).handle);
      ++done;
    }
  }
  EXPECT_GT(done, 50);
}

TEST(ExplodeCorpus, PartsCoverTheBoxesOfTheirReferences) {
  int done = 0;
  for (const EntityScene& scene : corpus()) {
    const Drawing& drawing = scene.document->drawing;
    for (const RecordId id : drawing.entities(SpaceId::model)) {
      if (drawing.record(id).kind != drawing::Kind::insert || !drawing.parts(id).empty()) continue;
      const auto before = extents(drawing, id);
      auto parts = try_explode(scene, id);
      if (!parts || !before) continue;
      std::erase_if(*parts, [](const auto& part) {
        return text(part, Member::ObjectName) == "AcDbAttributeDefinition";
      });
      const Box after = extents_of(drawing, *parts);
      const double size = norm(before->max) + norm(before->min) + 1;
      const auto where =
          drawing.path().string() + " " + drawing::handle_text(drawing.record(id).handle);
      EXPECT_LT(norm(after.min - before->min), 1e-6 * size) << where;
      EXPECT_LT(norm(after.max - before->max), 1e-6 * size) << where;
      ++done;
    }
  }
  EXPECT_GT(done, 20);
}

}  // namespace
}  // namespace velmar::embedded
