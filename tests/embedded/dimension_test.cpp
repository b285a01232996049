#include <cmath>
#include <filesystem>
#include <numbers>

#include "drawing/extents.h"
#include "embedded/error_numbers.h"
#include "embedded/host_scene.h"

namespace velmar::embedded {
namespace {

using drawing::Box;
using drawing::Drawing;
using drawing::RecordId;

using std::numbers::pi;

EntityScene empty_scene() { return EntityScene(Drawing::empty()); }

using Object = std::shared_ptr<host::Object>;

template <class... Arguments>
Object made(host::Object& by, Member member, Arguments... arguments) {
  return EntityScene::as_object(EntityScene::call_on(by, member, arguments...));
}

/// From (0,0) to (10,0), the line at y = 3, with the text on the line.
Object add_aligned(const EntityScene& scene) {
  return made(*scene.model(), Member::AddDimAligned, at(0, 0), at(10, 0), at(5, 3));
}

std::string handle(const Object& object) {
  return basic::convert<std::string>(object->get(Member::Handle));
}

RecordId record(const EntityScene& scene, const Object& object) {
  return scene.document->drawing.find(drawing::parse_handle(handle(object)));
}

drawing::Dimension body(const EntityScene& scene, const Object& object) {
  return std::get<drawing::Dimension>(scene.document->drawing.read_body(record(scene, object)));
}

/// Kinds and texts of what the dimension's block holds.
std::string drawn(const EntityScene& scene, const Object& object) {
  const Drawing& drawing = scene.document->drawing;
  std::string text;
  for (const RecordId id : drawing.entities(*drawing.find_space(body(scene, object).block))) {
    const drawing::Body part = drawing.read_body(id);
    text += std::string(drawing.kind_name(id));
    if (const auto* mtext = std::get_if<drawing::MText>(&part)) text += " " + mtext->text;
    if (const auto* line = std::get_if<drawing::Text>(&part)) text += " " + line->text;
    if (const auto* insert = std::get_if<drawing::Insert>(&part)) text += " " + insert->block;
    text += ", ";
  }
  return text;
}

Box box_of(const EntityScene& scene, const Object& object) {
  return drawing::extents(scene.document->drawing, record(scene, object)).value_or(Box{});
}

void expect_box(const Box& box, drawing::Point min, drawing::Point max) {
  EXPECT_LT(norm(box.min - min) + norm(box.max - max), 1e-9)
      << box.min.x << "," << box.min.y << " " << box.max.x << "," << box.max.y;
}

TEST(Dimension, IsAddedWithABlockThatShowsIt) {
  const EntityScene scene = empty_scene();
  const Object dimension = add_aligned(scene);
  EXPECT_TRUE(dimension->get(Member::ObjectName) == Value("AcDbAlignedDimension"));
  expect_value(dimension->get(Member::Measurement), 10.0, "measurement");
  expect_value(dimension->get(Member::TextPosition), at(5, 3), "text");
  EXPECT_EQ(drawn(scene, dimension),
            "LINE, LINE, LINE, LINE, SOLID, SOLID, MTEXT 10.0000, POINT, POINT, POINT, ");
  expect_box(box_of(scene, dimension), {0, 0, 0}, {10, 3.18, 0});
  EXPECT_EQ(scene.document->drawing.changes().added.size(), 1U) << "not what its block holds";

  const Object vertical =
      made(*scene.model(), Member::AddDimRotated, at(0, 0), at(7, 4), at(9, 1), pi / 2);
  expect_value(vertical->get(Member::Measurement), 4.0, "rotated");
  expect_value(vertical->get(Member::Rotation), pi / 2, "rotation");
  EXPECT_EQ(failure_of([&] { dimension->get(Member::Rotation); }), unknown_member);

  const EntityScene saved = scene.saved();
  EXPECT_TRUE(saved.document->drawing.warnings().empty());
  EXPECT_EQ(drawn(saved, saved.object(handle(vertical))), drawn(scene, vertical));
  EXPECT_EQ(body(saved, saved.object(handle(vertical))).block, "*D2");
  EXPECT_EQ(failure_of([&] { scene.call(handle(dimension), Member::Explode); }), unknown_member);
}

TEST(Dimension, InADrawingOfR12IsWrittenAsItIsReadThere) {
  const EntityScene scene(Drawing::read(tags("0 SECTION\n2 ENTITIES\n0 ENDSEC\n0 EOF\n"), "r12"));
  const Object dimension = add_aligned(scene);
  EXPECT_EQ(drawn(scene, dimension),
            "LINE, LINE, LINE, LINE, SOLID, SOLID, TEXT 10.0000, POINT, POINT, POINT, ");
  const std::string bytes = scene.bytes();
  for (const char* since_r13 : {"AcDb", "MTEXT", "BLOCK_RECORD", "\n370", "\n330", "\n 42\n"}) {
    EXPECT_EQ(bytes.find(since_r13), bytes.npos) << since_r13;
  }
  const Drawing saved = Drawing::read(bytes, "saved");
  EXPECT_TRUE(saved.warnings().empty());
  ASSERT_EQ(saved.entities(drawing::SpaceId::model).size(), 1U);
  EXPECT_TRUE(drawing::extents(saved, saved.entities(drawing::SpaceId::model).front()).has_value());
}

TEST(Dimension, KeepsWhatIsPutAsAnOverrideOfItsOwn) {
  struct Row {
    Member member;
    Value value;
  };
  const Row rows[] = {{Member::Fit, 1},
                      {Member::TextInside, true},
                      {Member::ForceLineInside, true},
                      {Member::TextMovement, 2},
                      {Member::VerticalTextPosition, 1},
                      {Member::ScaleFactor, 2.5},
                      {Member::LinearScaleFactor, 0.5},
                      {Member::PrimaryUnitsPrecision, 1},
                      {Member::SuppressTrailingZeros, true},
                      {Member::SuppressZeroFeet, false},
                      {Member::SuppressZeroInches, true},
                      {Member::TextPrefix, "L="},
                      {Member::TextSuffix, " mm"},
                      {Member::ToleranceUpperLimit, 0.5},
                      {Member::ToleranceDisplay, 2},
                      {Member::UnitsFormat, 2},
                      {Member::DimensionLineColor, 3},
                      {Member::Arrowhead2Type, 4},
                      {Member::TextStyle, "Standard"},
                      {Member::TextRotation, 0.25}};
  const EntityScene scene = empty_scene();
  const Object dimension = add_aligned(scene), other = add_aligned(scene);
  for (const Row& row : rows) {
    dimension->put(row.member, row.value);
    expect_value(dimension->get(row.member), row.value, std::string(host::spelling(row.member)));
  }
  const EntityScene saved = scene.saved();
  const Object again = saved.object(handle(dimension));
  for (const Row& row : rows) {
    expect_value(again->get(row.member), row.value, std::string(host::spelling(row.member)));
  }
  EXPECT_EQ(drawn(saved, again),
            "LINE, LINE, LINE, SOLID, INSERT _ARCHTICK, MTEXT L=5{\\H1x;\\S+0.5000^ 0;} mm, POINT, "
            "POINT, POINT, ");
  EXPECT_TRUE(other->get(Member::TextInside) == Value(false)) << "the style stays as it is";
  EXPECT_EQ(failure_of([&] { dimension->put(Member::Fit, Value(4)); }), invalid_input);
  EXPECT_EQ(failure_of([&] { dimension->put(Member::StyleName, Value("None")); }), key_not_found);
}

TEST(Dimension, HasTheTextThatOverridesTheMeasuredOne) {
  const EntityScene scene = empty_scene();
  const Object dimension = add_aligned(scene);
  dimension->put(Member::TextOverride, Value("2 x <>"));
  EXPECT_NE(drawn(scene, dimension).find("MTEXT 2 x 10.0000,"), std::string::npos);
  dimension->put(Member::ExtLine2Point, at(6, 0));
  EXPECT_NE(drawn(scene, dimension).find("MTEXT 2 x 6.0000,"), std::string::npos);
  expect_value(dimension->get(Member::TextPosition), at(3, 3), "in the middle again");
}

TEST(Dimension, HasALineThatFollowsItsTextUnlessTheTextMovesAlone) {
  const EntityScene scene = empty_scene();
  const Object dimension = add_aligned(scene);
  dimension->put(Member::TextPosition, at(4, 5));
  expect_value(dimension->get(Member::TextPosition), at(4, 5), "text");
  expect_box(box_of(scene, dimension), {0, 0, 0}, {10, 5.18, 0});
  dimension->put(Member::TextMovement, Value(2));
  dimension->put(Member::TextPosition, at(4, 9));
  EXPECT_DOUBLE_EQ(body(scene, dimension).definition.y, 5);
  EXPECT_GT(box_of(scene, dimension).max.y, 9);
}

TEST(Dimension, MovesWithItsBlockAndTellsTheNewLengthWhenScaled) {
  const EntityScene scene = empty_scene();
  const Object dimension = add_aligned(scene);
  dimension->put(Member::TextInsideAlign, false);
  const std::string name = handle(dimension);
  scene.call(name, Member::Move, at(0, 0), at(100, 50));
  expect_box(box_of(scene, dimension), {100, 50, 0}, {110, 53.18, 0});
  expect_value(dimension->get(Member::TextPosition), at(105, 53), "text");
  scene.call(name, Member::Rotate, at(100, 50), pi / 2);
  expect_box(box_of(scene, dimension), {100 - 3.18, 50, 0}, {100, 60, 0});
  scene.call(name, Member::ScaleEntity, at(100, 50), 2.0);
  expect_value(dimension->get(Member::Measurement), 20.0, "scaled");
  EXPECT_NE(drawn(scene, dimension).find("MTEXT 20.0000,"), std::string::npos);
  expect_box(box_of(scene, dimension), {100 - 6.18, 50, 0}, {100, 70, 0});
}

TEST(Dimension, ACopyHasABlockOfItsOwn) {
  const EntityScene scene = empty_scene();
  const Object dimension = add_aligned(scene);
  const Object copy = made(*dimension, Member::Copy);
  EXPECT_EQ(drawn(scene, copy), drawn(scene, dimension));
  scene.call(handle(copy), Member::Move, at(0, 0), at(0, 20));
  expect_box(box_of(scene, copy), {0, 20, 0}, {10, 23.18, 0});
  expect_box(box_of(scene, dimension), {0, 0, 0}, {10, 3.18, 0});
  const Object mirrored = made(*scene.object(handle(copy)), Member::Mirror, at(20, 0), at(20, 1));
  expect_box(box_of(scene, mirrored), {30, 20, 0}, {40, 23.18, 0});
}

/// A radius of 5 about (0,0) to which two dimensions show the block *D1: a line and a text.
std::string two_of_one_block() {
  std::string text = drawing_text("");
  const std::string row = tags("0 BLOCK_RECORD\n5 1E\n"), block = tags("0 BLOCK\n5 22\n"),
                    end = tags("0 ENDSEC\n0 EOF\n");
  text.insert(text.find(row), tags("0 BLOCK_RECORD\n5 1D\n100 AcDbSymbolTableRecord\n"
                                   "100 AcDbBlockTableRecord\n2 *D1\n"));
  text.insert(text.find(block),
              tags("0 BLOCK\n5 50\n330 1D\n100 AcDbEntity\n8 0\n100 AcDbBlockBegin\n2 *D1\n70 1\n"
                   "10 0\n20 0\n30 0\n3 *D1\n1 \n"
                   "0 LINE\n5 51\n330 1D\n100 AcDbEntity\n8 0\n100 AcDbLine\n10 0\n20 0\n30 0\n"
                   "11 5\n21 0\n31 0\n"
                   "0 SOLID\n5 52\n330 1D\n100 AcDbEntity\n8 0\n100 AcDbTrace\n10 4\n20 1\n30 0\n"
                   "11 4\n21 -1\n31 0\n12 5\n22 0\n32 0\n13 5\n23 0\n33 0\n"
                   "0 ENDBLK\n5 53\n330 1D\n100 AcDbEntity\n8 0\n100 AcDbBlockEnd\n"));
  for (const std::string number : {"30", "31"}) {
    text.insert(text.find(end),
                tags(head("DIMENSION", number) +
                     "100 AcDbDimension\n2 *D1\n10 0\n20 0\n30 0\n11 2\n21 0\n31 0\n70 36\n71 5\n"
                     "42 5\n3 Standard\n100 AcDbRadialDimension\n15 5\n25 0\n35 0\n40 0\n"));
  }
  return text;
}

TEST(Dimension, OfAnotherKindIsDrawnAnewInABlockOfItsOwn) {
  const EntityScene scene(Drawing::read(two_of_one_block(), "radius.dxf"));
  EXPECT_TRUE(scene.get("30", Member::ObjectName) == Value("AcDbRadialDimension"));
  expect_value(scene.get("30", Member::Measurement), 5.0, "radius");
  scene.call("30", Member::Move, at(0, 0), at(0, 20));
  EXPECT_EQ(drawn(scene, scene.object("30")), "LINE, SOLID, ") << "as the file has it";
  scene.call("30", Member::ScaleEntity, at(0, 20), 2.0);
  expect_value(scene.get("30", Member::Measurement), 10.0, "radius");
  EXPECT_EQ(drawn(scene, scene.object("30")),
            "LINE, LINE, LINE, SOLID, MTEXT R10.0000, POINT, POINT, ");
  scene.put("30", Member::TextOverride, "<> typ.");
  EXPECT_NE(drawn(scene, scene.object("30")).find("MTEXT R10.0000 typ.,"), std::string::npos);
  scene.put("30", Member::TextPosition, at(0, 35));
  const drawing::Dimension turned = body(scene, scene.object("30"));
  EXPECT_LT(norm(turned.third - drawing::Point{0, 30, 0}), 1e-9) << "it points to its text";
  expect_value(scene.get("30", Member::TextPosition), at(0, 35), "text");
  expect_box(box_of(scene, scene.object("31")), {0, -1, 0}, {5, 1, 0});
}

/// Names of the blocks that the drawing has for dimensions.
std::string drawn_blocks(const EntityScene& scene) {
  std::string names;
  for (const auto& space : scene.document->drawing.spaces()) {
    if (space.name.starts_with("*D")) names += space.name + " ";
  }
  return names;
}

TEST(Dimension, TakesItsBlockWithItUnlessOthersShowIt) {
  const EntityScene scene(Drawing::read(two_of_one_block(), "radius.dxf"));
  scene.call("30", Member::Delete);
  const EntityScene once = scene.saved();
  EXPECT_EQ(drawn_blocks(once), "*D1 ");
  expect_box(box_of(once, once.object("31")), {0, -1, 0}, {5, 1, 0});
  once.call("31", Member::Delete);
  EXPECT_EQ(once.document->drawing.changes().erased.size(), 1U) << "not what its block held";
  const EntityScene twice = once.saved();
  EXPECT_EQ(drawn_blocks(twice), "");
  EXPECT_EQ(twice.bytes().find("*D1"), std::string::npos) << "block record, BLOCK and all";
  EXPECT_TRUE(twice.document->drawing.broken_references().empty());
}

/// A copy of a drawing that nobody here wrote (tests/corpus/README.md).
EntityScene corpus_scene(const std::string& file) {
  return EntityScene(Drawing::open(std::filesystem::path(VELMAR_CORPUS) / file));
}

TEST(Dimension, IsTiedNoMoreToAnEntityThatIsErased) {
  const EntityScene scene = corpus_scene("netdxf/sample.dxf");
  const std::size_t faults = scene.document->drawing.broken_references().size();
  scene.call("AAF", Member::Delete);
  const EntityScene saved = scene.saved();
  EXPECT_EQ(saved.document->drawing.find(0xAC3), RecordId::none) << "its association";
  EXPECT_NE(saved.document->drawing.find(0xAD3), RecordId::none) << "that of another";
  expect_value(saved.get("AB2", Member::Measurement), 20.00000000000014, "it stays");
  EXPECT_EQ(saved.bytes().find("\n330\nAC3\n"), std::string::npos) << "nor is it named";
  EXPECT_LE(saved.document->drawing.broken_references().size(), faults);
}

TEST(Leader, LeadsToNothingOnceItsNoteIsErased) {
  const EntityScene scene = corpus_scene("acadsharp/sample_AC1015_ascii.dxf");
  RecordId leader = RecordId::none;
  const Drawing& drawing = scene.document->drawing;
  for (const RecordId id : drawing.entities(drawing::SpaceId::model)) {
    const bool leads_there =
        drawing.record(id).kind == drawing::Kind::leader && drawing.row_text(id, 340) == "513";
    if (leads_there) leader = id;
  }
  ASSERT_NE(leader, RecordId::none);
  const std::string handle = drawing::handle_text(drawing.record(leader).handle);
  scene.call("513", Member::Delete);
  const EntityScene saved = scene.saved();
  const RecordId again = saved.document->drawing.find(drawing::parse_handle(handle));
  EXPECT_EQ(saved.document->drawing.row_text(again, 340), "0");
  EXPECT_EQ(saved.document->drawing.row_text(again, 73).back(), '3') << "without a note";
  EXPECT_EQ(saved.document->drawing.broken_references().size(), drawing.broken_references().size());
}

TEST(Dimension, AnEditOfOneLeavesTheBytesOfTheOthers) {
  const std::string before = two_of_one_block();
  const EntityScene scene(Drawing::read(before, "radius.dxf"));
  scene.put("30", Member::Color, Value(3));
  const std::string after = scene.bytes();
  const std::string color = " 62\n     3\n";
  const std::size_t changed = after.find(color);
  ASSERT_NE(changed, after.npos);
  EXPECT_EQ(after.substr(0, changed) + after.substr(changed + color.size()), before);
}

TEST(DimStyles, ListsAddsAndChoosesStyles) {
  HostScene scene;
  const Object documents = EntityScene::as_object(scene.application->get(Member::Documents));
  const Object document = made(*documents, Member::Add);
  const Object styles = EntityScene::as_object(document->get(Member::DimStyles));
  EXPECT_TRUE(styles->get(Member::Count) == Value(1));
  const Object wide = made(*styles, Member::Add, "Wide");
  EXPECT_TRUE(wide->get(Member::Name) == Value("Wide"));
  EXPECT_TRUE(made(*styles, Member::Add, "WIDE")->get(Member::Name) == Value("Wide"));
  EXPECT_TRUE(styles->get(Member::Count) == Value(2));
  EXPECT_EQ(failure_of([&] { made(*styles, Member::Item, "None"); }), key_not_found);
  document->put(Member::ActiveDimStyle, wide);
  const Object model = EntityScene::as_object(document->get(Member::ModelSpace));
  const Object dimension = made(*model, Member::AddDimAligned, at(0, 0), at(1, 0), at(0, 1));
  EXPECT_TRUE(dimension->get(Member::StyleName) == Value("Wide"));
  dimension->put(Member::StyleName, "standard");
  EXPECT_TRUE(dimension->get(Member::StyleName) == Value("Standard"));
  EXPECT_TRUE(Drawing::read(scene.drawing().bytes(), "saved").has_row("DIMSTYLE", "Wide"));
}

class CommandLineScene : public HostScene {
 public:
  void send(const std::string& text) { document().SendCommand(text); }
  /// Of the newest entity.
  drawing::Dimension newest() const {
    const auto all = drawing().entities(drawing::SpaceId::model);
    return std::get<drawing::Dimension>(drawing().read_body(all.back()));
  }
  std::size_t count() const { return drawing().entity_count(drawing::SpaceId::model); }
};

TEST(SendCommand, DrawsALinearDimensionFromPoints) {
  CommandLineScene scene;
  const std::size_t before = scene.count();
  scene.send("_DIMLINEAR\r0,0\r100,0\rH\r0,-2000\r");
  ASSERT_EQ(scene.count(), before + 1);
  EXPECT_EQ(scene.newest().definition, (drawing::Point{100, -2000, 0}));
  EXPECT_EQ(scene.newest().rotation, 0);
  EXPECT_EQ(scene.said().back(), "\r\nDimension text = 100");
  scene.send("dimlinear 5,0 5,80 -25,0 ");
  EXPECT_DOUBLE_EQ(scene.newest().rotation, pi / 2) << "beside the points";
  scene.send("_DIMLINEAR 0,0 @30,10 0,");
  scene.send("50 ");
  EXPECT_DOUBLE_EQ(measurement(scene.newest()), 30);
}

TEST(SendCommand, EndsACommandAtWhatItCannotRead) {
  CommandLineScene scene;
  const std::size_t before = scene.count();
  struct Row {
    const char *text, *said;
  };
  const Row rows[] = {{"_DIMLINEAR\r0,0\r100,50\rV\r,\r", "\r\nPoint or option keyword required."},
                      {"_DIMLINEAR\r1,5,0\r2;3\r", "\r\nPoint or option keyword required."},
                      {"IMPORT\r", "\r\nIMPORT is not available here."},
                      {"FOO\r", "\r\nUnknown command \"FOO\".  Press F1 for help."}};
  for (const Row& row : rows) {
    scene.send(row.text);
    EXPECT_EQ(scene.said().back(), row.said) << row.text;
  }
  const std::size_t said = scene.said().size();
  scene.send("IMPORT");
  EXPECT_EQ(scene.said().size(), said) << "waits for the end of the word";
  scene.send("IMPORT\n");
  EXPECT_EQ(scene.said().back(), "\r\nUnknown command \"IMPORTIMPORT\".  Press F1 for help.");
  EXPECT_EQ(scene.count(), before);
}

TEST(KeptDimensions, GoWithTheirBlocksAndAreNotScaled) {
  const auto file = std::filesystem::path(VELMAR_CORPUS) / "ezdxf/uncommon.dxf";
  for (const std::string handle : {"3F6", "37C"}) {
    const EntityScene scene{Drawing::open(file)};
    const RecordId id = scene.document->drawing.find(drawing::parse_handle(handle));
    const Value length = scene.get(handle, Member::Measurement);
    const Value text = scene.get(handle, Member::TextPosition);
    const Box before = *drawing::extents(scene.document->drawing, id);
    scene.call(handle, Member::Move, at(1, 2), at(11, 7));
    const EntityScene moved = scene.saved();
    const Box after = *drawing::extents(moved.document->drawing, id);
    expect_box(after, before.min + drawing::Point{10, 5, 0}, before.max + drawing::Point{10, 5, 0});
    moved.call(handle, Member::Rotate, at(10, 5), pi / 2);
    moved.call(handle, Member::Move, at(10, 5), at(0, 0));

    const EntityScene turned = moved.saved();
    const Box now = *drawing::extents(turned.document->drawing, id);
    expect_box(now, {-before.max.y, before.min.x, 0}, {-before.min.y, before.max.x, 0});
    expect_value(turned.get(handle, Member::Measurement), length, handle);
    const auto& at_text = *text.if_is<basic::Doubles>();
    expect_value(turned.get(handle, Member::TextPosition), at(-at_text[1], at_text[0]), handle);
    EXPECT_TRUE(turned.document->drawing.broken_references().empty());
    for (const drawing::TagValue& tag : turned.document->drawing.tags(id)) EXPECT_NE(tag.code, 310);
    EXPECT_EQ(failure_of([&] { turned.call(handle, Member::ScaleEntity, at(0, 0), 2.0); }),
              no_such_action);
  }
  const EntityScene scene{Drawing::open(file)};
  const RecordId arc = scene.document->drawing.find(0x3F6);
  const drawing::KeptDimension before = scene.document->drawing.read_kept_dimension(arc);
  scene.call("3F6", Member::Rotate, at(0, 0), pi / 2);
  const drawing::KeptDimension after = scene.document->drawing.read_kept_dimension(arc);
  EXPECT_NEAR(std::remainder(after.start_angle - before.start_angle - pi / 2, 2 * pi), 0, 1e-9);
  EXPECT_NEAR(after.third.x, -before.third.y, 1e-9);
}

}  // namespace
}  // namespace velmar::embedded
