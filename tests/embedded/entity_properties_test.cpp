#include <numbers>

#include "embedded/entity_scene.h"

namespace velmar::embedded {
namespace {

using std::numbers::pi;

struct Expectation {
  std::string handle;
  Member member;
  Value value;
};

std::string where(const Expectation& row) {
  return row.handle + " " + std::string(host::spelling(row.member));
}

TEST(EntityProperties, AreDerivedFromTheFields) {
  const EntityScene scene;
  const double bulged_area = 4 * 2 / 2.0 + pi / 2, bulged_length = 4 + pi + std::sqrt(20);
  const Expectation rows[] = {
      {"30", Member::ObjectName, "AcDbLine"},
      {"30", Member::Length, 5.0},
      {"30", Member::Angle, std::atan2(4, 3)},
      {"30", Member::Delta, at(3, 4)},
      {"31", Member::ArcLength, pi},
      {"31", Member::TotalAngle, pi / 2},
      {"31", Member::Area, pi - 2},
      {"31", Member::EndPoint, at(0, 2)},
      {"32", Member::Circumference, 6 * pi},
      {"32", Member::Area, 9 * pi},
      {"33", Member::MinorAxis, at(0, 2)},
      {"33", Member::MinorRadius, 2.0},
      {"33", Member::Area, 8 * pi},
      {"34", Member::Coordinates, basic::Doubles{0, 0, 4, 0, 4, 2}},
      {"34", Member::Closed, true},
      {"34", Member::Area, bulged_area},
      {"34", Member::Length, bulged_length},
      {"35", Member::ObjectName, "AcDb2dPolyline"},
      {"35", Member::Coordinates, basic::Doubles{0, 0, 5, 3, 4, 5}},
      {"35", Member::Elevation, 5.0},
      {"35", Member::Length, 5.0},
      {"39", Member::ObjectName, "AcDb3dPolyline"},
      {"39", Member::Coordinates, basic::Doubles{0, 0, 0, 1, 2, 2}},
      {"39", Member::Length, 3.0},
      {"3D", Member::EntityType, 32},
      {"3D", Member::Alignment, 0},
      {"3E", Member::Name, "DOOR"},
      {"3E", Member::Rotation, pi / 2},
      {"3E", Member::HasAttributes, true},
      {"3E", Member::EffectiveName, "DOOR"},
      {"3F", Member::TagString, "NUMBER"},
      {"41", Member::ObjectName, "AcDbMline"},
      {"41", Member::Layer, "0"},
      {"41", Member::Visible, true},
  };
  for (const Expectation& row : rows) {
    expect_value(scene.get(row.handle, row.member), row.value, where(row));
  }
}

// Each is put alone, read back at once, and read again from the saved drawing.
TEST(EntityProperties, ArePutAndSaved) {
  const Expectation rows[] = {
      {"30", Member::Layer, "Walls"},
      {"30", Member::Color, 3},
      {"30", Member::Linetype, "DASHED"},
      {"30", Member::LinetypeScale, 0.25},
      {"30", Member::Lineweight, 35},
      {"30", Member::Visible, false},
      {"30", Member::StartPoint, at(7, 8, 9)},
      {"30", Member::Thickness, 1.5},
      {"31", Member::Center, at(1, 1, 1)},
      {"31", Member::EndAngle, pi},
      {"32", Member::Diameter, 5.0},
      {"32", Member::Circumference, 5.0},
      {"32", Member::Area, 5.0},
      {"32", Member::Normal, at(0, 0.6, 0.8)},
      {"33", Member::MajorAxis, at(0, 5)},
      {"33", Member::MajorRadius, 6.0},
      {"33", Member::MinorRadius, 1.0},
      {"33", Member::StartAngle, pi / 3},
      {"34", Member::Coordinates, basic::Doubles{1, 1, 5, 1, 5, 3}},
      {"34", Member::Closed, false},
      {"34", Member::Elevation, 2.5},
      {"34", Member::ConstantWidth, 0.5},
      {"35", Member::Closed, true},
      {"35", Member::Elevation, 1.0},
      {"39", Member::Coordinates, basic::Doubles{1, 1, 1, 2, 2, 2}},
      {"3D", Member::TextString, "other text"},
      {"3D", Member::Height, 5.0},
      {"3D", Member::Rotation, pi / 6},
      {"3D", Member::ScaleFactor, 0.8},
      {"3D", Member::ObliqueAngle, 0.2},
      {"3D", Member::StyleName, "Notes"},
      {"3D", Member::Backward, true},
      {"3D", Member::UpsideDown, true},
      {"3D", Member::Alignment, 4},
      {"3D", Member::Alignment, 11},
      {"3E", Member::XScaleFactor, -1.0},
      {"3E", Member::InsertionPoint, at(3, 4, 5)},
      {"3F", Member::TextString, "D2"},
      {"3F", Member::Invisible, true},
      {"41", Member::Layer, "Walls"},
      {"41", Member::Color, 256},
  };
  for (const Expectation& row : rows) {
    const EntityScene scene;
    scene.put(row.handle, row.member, row.value);
    expect_value(scene.get(row.handle, row.member), row.value, where(row));
    expect_value(scene.saved().get(row.handle, row.member), row.value, where(row) + " saved");
  }
}

TEST(EntityProperties, TakeTheDrawingsOwnSpellingOfNames) {
  const EntityScene scene;
  scene.put("30", Member::Layer, "wALLS");
  scene.put("30", Member::Linetype, "bylayer");
  scene.put("3D", Member::StyleName, "NOTES");
  scene.put("3E", Member::Name, "door");
  EXPECT_TRUE(scene.get("30", Member::Layer) == Value("Walls"));
  EXPECT_TRUE(scene.get("30", Member::Linetype) == Value("ByLayer"));
  EXPECT_TRUE(scene.get("3D", Member::StyleName) == Value("Notes"));
  EXPECT_TRUE(scene.get("3E", Member::Name) == Value("DOOR"));
}

TEST(EntityProperties, GivePointsOfTiltedEntitiesInWorldCoordinates) {
  const EntityScene scene(head("CIRCLE", "30") +
                          "100 AcDbCircle\n10 1\n20 2\n30 3\n40 1\n210 1\n220 0\n230 0\n" +
                          head("TEXT", "31") +
                          "100 AcDbText\n10 1\n20 2\n30 0\n40 1\n1 A\n210 0\n220 0\n230 -1\n"
                          "100 AcDbText\n");
  expect_value(scene.get("30", Member::Center), at(3, 1, 2), "center");
  scene.put("30", Member::Center, at(7, 8, 9));
  expect_value(scene.saved().get("30", Member::Center), at(7, 8, 9), "center put");
  scene.put("30", Member::Normal, at(0, 0, 2));
  expect_value(scene.get("30", Member::Normal), at(0, 0, 1), "normal is a unit vector");
  expect_value(scene.get("30", Member::Center), at(7, 8, 9), "center stays in the world");
  expect_value(scene.get("31", Member::InsertionPoint), at(-1, 2), "insertion");
}

TEST(EntityProperties, OfAJustifiedTextLetTheAlignmentPointDecide) {
  const EntityScene scene;
  EXPECT_NE(failure_of([&] { scene.put("3D", Member::TextAlignmentPoint, at(9, 9)); }), 0);
  scene.put("3D", Member::Alignment, 10);
  scene.put("3D", Member::TextAlignmentPoint, at(20, 30));
  const Value placed = scene.get("3D", Member::InsertionPoint);
  scene.put("3D", Member::InsertionPoint, at(0, 0, 5));
  expect_value(scene.get("3D", Member::InsertionPoint), placed, "insertion point");
  scene.put("3D", Member::TextAlignmentPoint, at(21, 32));
  const auto& before = *placed.if_is<basic::Doubles>();
  expect_value(scene.get("3D", Member::InsertionPoint), at(before[0] + 1, before[1] + 2),
               "follows");
}

TEST(EntityProperties, HoldTrueColoursBesideTheIndex) {
  const EntityScene scene;
  const auto color = EntityScene::as_object(scene.get("30", Member::TrueColor));
  EntityScene::call_on(*color, Member::SetRGB, 250, 5, 5);
  scene.put("30", Member::TrueColor, color);
  const EntityScene saved = scene.saved();
  const auto read = EntityScene::as_object(saved.get("30", Member::TrueColor));
  expect_value(read->get(Member::Red), 250, "red");
  expect_value(saved.get("30", Member::Color), 1, "nearest index");
  saved.put("30", Member::Color, 5);
  const auto blue = EntityScene::as_object(saved.get("30", Member::TrueColor));
  expect_value(blue->get(Member::Blue), 255, "the index replaces the true colour");
  expect_value(blue->get(Member::Red), 0, "red of the index");
}

TEST(EntityProperties, OfVerticesGoByIndex) {
  const EntityScene scene;
  expect_value(scene.call("34", Member::GetBulge, 1), 1.0, "bulge");
  scene.call("34", Member::SetBulge, 0, -0.5);
  scene.call("34", Member::AddVertex, 1, basic::Doubles{2, -1});
  scene.put("34", Member::ConstantWidth, 0.25);
  scene.call("34", Member::SetWidth, 2, 1.0, 2.0);
  scene.put("35", Member::Coordinates, basic::Doubles{0, 0, 99, 3, 4, 99});
  scene.call("35", Member::AppendVertex, at(9, 9, 9));
  const EntityScene saved = scene.saved();
  expect_value(saved.get("34", Member::Coordinates), basic::Doubles{0, 0, 2, -1, 4, 0, 4, 2}, "34");
  expect_value(saved.call("34", Member::GetBulge, 0), -0.5, "bulge set");
  std::vector<Value> width{0, {}, {}};
  saved.object("34")->call(Member::GetWidth, width);
  expect_value(width[2], 0.25, "width of another vertex");
  width[0] = 2;
  saved.object("34")->call(Member::GetWidth, width);
  expect_value(width[2], 2.0, "end width");
  expect_value(saved.get("35", Member::Coordinates), basic::Doubles{0, 0, 5, 3, 4, 5, 9, 9, 5},
               "35");
  const drawing::Entity heavy = saved.document->drawing.read(saved.document->drawing.find(0x35));
  for (const auto& vertex : std::get<drawing::Polyline>(heavy.body).vertices) {
    EXPECT_EQ(vertex.position.z, 5) << "the z of a 2D vertex is not taken";
  }
  EXPECT_EQ(failure_of([&] { scene.call("34", Member::GetBulge, 4); }), -2145320939);
}

}  // namespace
}  // namespace velmar::embedded
