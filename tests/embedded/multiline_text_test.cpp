#include <numbers>

#include "embedded/entity_scene.h"
#include "embedded/error_numbers.h"
#include "embedded/host_scene.h"

namespace velmar::embedded {
namespace {

std::string mtext(const std::string& fields, const std::string& layer = "0") {
  return head("MTEXT", "30", layer) + "100 AcDbMText\n10 10\n20 20\n30 0\n40 21\n41 0\n" + fields;
}

struct Corners {
  Value low, high;
};
Corners box(host::Object& object) {
  std::vector<Value> corners{Value(), Value()};
  object.call(Member::GetBoundingBox, corners);
  return {corners[0], corners[1]};
}

std::string handle_of(const Value& made) {
  return basic::convert<std::string>(EntityScene::as_object(made)->get(Member::Handle));
}

TEST(MText, PropertiesAreReadAndPutAndSaved) {
  const EntityScene scene(mtext("71 1\n72 1\n1 X\\PXX\n44 1\n"));
  struct {
    Member member;
    Value read, put;
  } const rows[] = {
      {Member::TextString, "X\\PXX", std::string(600, 'a')},
      {Member::InsertionPoint, at(10, 20), at(1, 2, 3)},
      {Member::Width, 0.0, 50.0},
      {Member::Height, 21.0, 4.0},
      {Member::Rotation, 0.0, std::numbers::pi / 2},
      {Member::DrawingDirection, 1, 5},
      {Member::LineSpacingStyle, 1, 2},
      {Member::LineSpacingFactor, 1.0, 1.5},
      {Member::StyleName, "Standard", "Notes"},
      {Member::Normal, at(0, 0, 1), at(0, 1, 0)},
  };
  for (const auto& row : rows) {
    const std::string name(host::spelling(row.member));
    const EntityScene each(mtext("71 1\n72 1\n1 X\\PXX\n44 1\n"));
    expect_value(each.get("30", row.member), row.read, name);
    each.put("30", row.member, row.put);
    expect_value(each.saved().get("30", row.member), row.put, name);
  }
  expect_value(scene.get("30", Member::LineSpacingDistance), 35.0, "distance");
  scene.put("30", Member::LineSpacingDistance, 70.0);
  expect_value(scene.get("30", Member::LineSpacingFactor), 2.0, "factor");
}

TEST(MText, StaysInPlaceWhenItIsAttachedElsewhere) {
  const EntityScene scene(mtext("71 1\n72 1\n1 XX\\PXX\n"));
  const auto before = box(*scene.object("30"));
  expect_value(before.low, at(10, 20 - 56), "low");
  scene.put("30", Member::AttachmentPoint, 9);
  expect_value(scene.get("30", Member::InsertionPoint), at(45, -36), "bottom right");
  const auto after = box(*scene.object("30"));
  expect_value(after.low, before.low, "low");
  expect_value(after.high, before.high, "high");
}

TEST(MText, RefusesWhatItCannotBe) {
  const EntityScene scene(mtext("71 1\n72 1\n1 X\n"));
  const std::string before = scene.bytes();
  const auto put = [&](Member member, const Value& value) {
    return failure_of([&] { scene.put("30", member, value); });
  };
  EXPECT_EQ(put(Member::Width, -1.0), invalid_input);
  EXPECT_EQ(put(Member::Height, 0.0), invalid_input);
  EXPECT_EQ(put(Member::AttachmentPoint, 10), invalid_input);
  EXPECT_EQ(put(Member::DrawingDirection, 2), invalid_input);
  EXPECT_EQ(put(Member::LineSpacingFactor, 5.0), invalid_input);
  EXPECT_EQ(put(Member::LineSpacingStyle, 0), invalid_input);
  EXPECT_EQ(put(Member::StyleName, "none"), key_not_found);
  EXPECT_EQ(put(Member::Thickness, 1.0), unknown_member);
  EXPECT_EQ(failure_of([&] { scene.call("30", Member::Explode); }), unknown_member);
  EXPECT_EQ(scene.bytes(), before);
  const EntityScene locked(mtext("1 X\n", "Locked"));
  EXPECT_EQ(failure_of([&] { locked.put("30", Member::TextString, "Y"); }), on_locked_layer);
}

TEST(MText, IsAddedAndCopied) {
  const EntityScene scene;
  const std::string long_text(1000, 'a');
  const Value made =
      EntityScene::call_on(*scene.model(), Member::AddMText, at(1, 2, 3), 40.0, long_text);
  const std::string handle = handle_of(made);
  const EntityScene saved = scene.saved();
  EXPECT_TRUE(saved.get(handle, Member::ObjectName) == Value("AcDbMText"));
  EXPECT_TRUE(saved.get(handle, Member::TextString) == Value(long_text));
  EXPECT_TRUE(saved.get(handle, Member::Layer) == Value("Walls"));
  expect_value(saved.get(handle, Member::Width), 40.0, "width");
  expect_value(saved.get(handle, Member::AttachmentPoint), 1, "attachment");
  const std::string copy = handle_of(saved.call(handle, Member::Copy));
  EXPECT_TRUE(saved.get(copy, Member::TextString) == Value(long_text));

  const EntityScene old(drawing::Drawing::read(
      tags("0 SECTION\n2 ENTITIES\n0 POINT\n8 0\n10 0\n20 0\n0 ENDSEC\n0 EOF\n"), "old.dxf"));
  EXPECT_EQ(
      failure_of([&] { EntityScene::call_on(*old.model(), Member::AddMText, at(0, 0), 0.0, "X"); }),
      drawing_failed);
}

TEST(Tolerance, IsAddedReadAndPut) {
  const EntityScene scene;
  const auto made = EntityScene::as_object(EntityScene::call_on(
      *scene.model(), Member::AddTolerance, "{\\Fgdt;j}%%v0.1", at(5, 6), at(0, 2)));
  const std::string handle = basic::convert<std::string>(made->get(Member::Handle));
  made->put(Member::TextHeight, 2.0);
  made->put(Member::ScaleFactor, 3.0);
  const EntityScene saved = scene.saved();
  EXPECT_TRUE(saved.get(handle, Member::ObjectName) == Value("AcDbFcf"));
  EXPECT_TRUE(saved.get(handle, Member::TextString) == Value("{\\Fgdt;j}%%v0.1"));
  expect_value(saved.get(handle, Member::InsertionPoint), at(5, 6), "insertion");
  expect_value(saved.get(handle, Member::DirectionVector), at(0, 1), "direction");
  expect_value(saved.get(handle, Member::TextHeight), 2.0, "height");
  expect_value(saved.get(handle, Member::ScaleFactor), 3.0, "scale");
  EXPECT_TRUE(saved.get(handle, Member::StyleName) == Value("Standard"));
  EXPECT_EQ(failure_of([&] { saved.put(handle, Member::StyleName, "none"); }), key_not_found);
  EXPECT_EQ(failure_of([&] { saved.put(handle, Member::DirectionVector, at(0, 0)); }),
            invalid_input);
  EXPECT_EQ(failure_of([&] {
              EntityScene::call_on(*scene.model(), Member::AddTolerance, "X", at(0, 0), at(0, 0));
            }),
            invalid_input);
  saved.call(handle, Member::Move, at(0, 0), at(1, 1));
  const auto corners = box(*saved.object(handle));
  expect_value(corners.high, at(6 + 3.27, basic::convert<basic::Doubles>(corners.high)[1]),
               "half a frame beside the insertion point");
}

TEST(TextStyles, AreReadPutAddedAndMadeCurrent) {
  HostScene scene;
  auto& document = *scene.application->active();
  const auto object = [](const Value& value) { return EntityScene::as_object(value); };
  const auto document_object =
      object(object(Value(scene.application))->get(Member::ActiveDocument));
  const auto styles = object(document_object->get(Member::TextStyles));
  EXPECT_TRUE(styles->get(Member::Count) == Value(2));
  const auto notes = object(EntityScene::call_on(*styles, Member::Item, "NOTES"));
  EXPECT_TRUE(notes->get(Member::Name) == Value("Notes"));
  notes->put(Member::FontFile, "simplex.shx");
  notes->put(Member::Width, 0.8);
  notes->put(Member::Height, 3.0);
  notes->put(Member::ObliqueAngle, 0.2);
  notes->put(Member::TextGenerationFlag, 2);
  notes->put(Member::BigFontFile, "bigfont.shx");
  EXPECT_EQ(failure_of([&] { notes->put(Member::Width, 0.0); }), invalid_input);
  EXPECT_EQ(failure_of([&] { notes->put(Member::Name, "Other"); }), no_such_action);

  const auto active = [&] { return object(document_object->get(Member::ActiveTextStyle)); };
  EXPECT_TRUE(active()->get(Member::Name) == Value("Standard"));
  document_object->put(Member::ActiveTextStyle, Value(notes));
  EXPECT_TRUE(active()->get(Member::Name) == Value("Notes"));
  const auto model = object(document_object->get(Member::ModelSpace));
  const auto made = object(EntityScene::call_on(*model, Member::AddMText, at(0, 0), 0.0, "X"));
  EXPECT_TRUE(made->get(Member::StyleName) == Value("Notes"));
  expect_value(made->get(Member::Height), 3.0, "of the style");

  const auto added = object(EntityScene::call_on(*styles, Member::Add, "Titles"));
  EXPECT_TRUE(added->get(Member::FontFile) == Value("txt"));
  const auto again = drawing::Drawing::read(document.drawing.bytes(), "again");
  EXPECT_EQ(again.table("STYLE"), (std::vector<std::string>{"Standard", "Notes", "Titles"}));
  const auto row = again.read_text_style(again.find_row("STYLE", "Notes"));
  EXPECT_EQ(row.font_file + row.big_font_file, "simplex.shxbigfont.shx");
  EXPECT_NEAR(row.oblique, 0.2, 1e-12);
}

TEST(Text, ASingleLineTextFollowsItsStyle) {
  const EntityScene scene(head("TEXT", "30") +
                          "100 AcDbText\n10 0\n20 0\n30 0\n40 21\n1 HI\n72 2\n11 100\n21 0\n31 0\n"
                          "100 AcDbText\n");
  const drawing::RecordId notes = scene.document->drawing.find_row("STYLE", "Notes");
  auto style = scene.document->drawing.read_text_style(notes);
  style.font_file = "simplex";
  scene.document->drawing.write_text_style(notes, style);
  scene.put("30", Member::StyleName, "notes");
  expect_value(scene.get("30", Member::InsertionPoint), at(100 - 22, 0), "right-aligned");
}

}  // namespace
}  // namespace velmar::embedded
