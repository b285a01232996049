#include <bit>
#include <cstdio>

#include "embedded/entity_scene.h"
#include "embedded/error_numbers.h"

namespace velmar::embedded {
namespace {

std::string kinds() {
  return head("SOLID", "30") +
         "100 AcDbTrace\n10 1\n20 0\n30 2\n11 3\n21 0\n31 2\n12 1\n22 1\n32 2\n39 1\n210 0\n220 0\n"
         "230 -1\n" +
         head("3DFACE", "31") +
         "100 AcDbFace\n10 0\n20 0\n30 0\n11 4\n21 0\n31 0\n12 4\n22 3\n32 5\n" +
         "13 0\n23 3\n33 5\n70 2\n" + head("LEADER", "32") +
         "100 AcDbLeader\n71 1\n76 2\n10 0\n20 0\n30 0\n10 5\n20 5\n30 0\n" + head("RAY", "33") +
         "100 AcDbRay\n10 1\n20 1\n30 0\n11 0.6\n21 0.8\n31 0\n" + head("XLINE", "34") +
         "100 AcDbXline\n10 1\n20 1\n30 0\n11 1\n21 0\n31 0\n" + head("SPLINE", "35") +
         "100 AcDbSpline\n210 0\n220 0\n230 1\n70 8\n71 3\n72 8\n73 4\n74 1\n42 1e-7\n40 0\n40 0\n"
         "40 0\n40 0\n40 1\n40 1\n40 1\n40 1\n10 0\n20 0\n30 0\n10 1\n20 3\n30 0\n10 2\n20 -3\n"
         "30 0\n10 3\n20 0\n30 0\n11 0\n21 0\n31 0\n" +
         head("OLE2FRAME", "36") +
         "100 AcDbOle2Frame\n70 2\n3 OLE\n10 1\n20 8\n30 0\n11 5\n21 2\n31 0\n71 2\n72 0\n90 2\n"
         "310 8055\n1 OLE\n" +
         head("OLEFRAME", "37") + "100 AcDbOleFrame\n70 1\n90 2\n310 8055\n1 OLE\n";
}

std::pair<Value, Value> box(const EntityScene& scene, const std::string& handle) {
  std::vector<Value> corners(2);
  scene.object(handle)->call(Member::GetBoundingBox, corners);
  return {corners[0], corners[1]};
}

TEST(CurveKinds, TellWhereTheyAre) {
  const EntityScene scene(kinds());
  // Of the normal -z the plane's x axis points to -x; of a triangle the fourth corner is the third.
  expect_value(scene.get("30", Member::Coordinates),
               basic::Doubles{-1, 0, -2, -3, 0, -2, -1, 1, -2, -1, 1, -2}, "solid");
  expect_value(scene.call("31", Member::Coordinate, 2), at(4, 3, 5), "face");
  expect_value(scene.get("32", Member::Coordinates), basic::Doubles{0, 0, 0, 5, 5, 0}, "leader");
  expect_value(scene.get("33", Member::SecondPoint), at(1.6, 1.8), "ray");
  EXPECT_TRUE(scene.get("35", Member::NumberOfControlPoints) == Value(4));
  expect_value(scene.call("35", Member::GetControlPoint, 1), at(1, 3), "spline");
  expect_value(scene.get("36", Member::Width), 4.0, "frame");
  struct Row {
    const char* handle;
    Point min, max;
  };
  const double top = std::sqrt(3.0) / 2;
  const Row rows[] = {{"30", {-3, 0, -3}, {-1, 1, -2}},
                      {"31", {0, 0, 0}, {4, 3, 5}},
                      {"32", {0, 0, 0}, {5, 5, 0}},
                      {"35", {0, -top, 0}, {3, top, 0}},
                      {"36", {1, 2, 0}, {5, 8, 0}}};
  for (const Row& row : rows) {
    const auto [min, max] = box(scene, row.handle);
    expect_value(min, at(row.min.x, row.min.y, row.min.z), row.handle);
    expect_value(max, at(row.max.x, row.max.y, row.max.z), row.handle);
  }
  EXPECT_EQ(failure_of([&] { box(scene, "33"); }), no_extents);
  EXPECT_EQ(failure_of([&] { box(scene, "34"); }), no_extents);
  EXPECT_EQ(failure_of([&] { box(scene, "37"); }), no_such_action) << "no place in the file";
}

TEST(CurveKinds, AreMovedTurnedAndMirrored) {
  const EntityScene scene(kinds());
  for (const char* handle : {"30", "31", "32", "33", "34", "35"}) {
    scene.call(handle, Member::Rotate, at(0, 0), std::acos(0.0));
    scene.call(handle, Member::Move, at(0, 0), at(1, 0, 7));
    scene.call(handle, Member::ScaleEntity, at(0, 0), 2.0);
  }
  scene.call("36", Member::Move, at(0, 0), at(10, 0));
  const EntityScene saved = scene.saved();
  expect_value(saved.call("30", Member::Coordinate, 1), at(2, -6, 10), "solid");
  expect_value(saved.call("31", Member::Coordinate, 2), at(-4, 8, 24), "face");
  expect_value(saved.call("32", Member::Coordinate, 1), at(-8, 10, 14), "leader");
  expect_value(saved.get("33", Member::DirectionVector), at(-0.8, 0.6), "ray");
  expect_value(saved.get("34", Member::BasePoint), at(0, 2, 14), "construction line");
  expect_value(saved.call("35", Member::GetControlPoint, 1), at(-4, 2, 14), "spline");
  expect_value(saved.get("36", Member::InsertionPoint), at(11, 8), "frame");

  const std::string before = scene.bytes();
  EXPECT_EQ(failure_of([&] { scene.call("36", Member::Rotate, at(0, 0), 1.0); }), no_such_action);
  EXPECT_EQ(failure_of([&] { scene.call("36", Member::Mirror, at(0, 0), at(0, 1)); }),
            no_such_action);
  EXPECT_EQ(scene.bytes(), before) << "not even a copy is left";
  const auto mirrored =
      EntityScene::as_object(scene.call("33", Member::Mirror, at(0, 0), at(0, 1)));
  expect_value(mirrored->get(Member::DirectionVector), at(0.8, 0.6), "mirrored ray");
}

/// Little-endian, as data in a file.
std::string hexadecimal(double number) {
  std::string text;
  const auto bits = std::bit_cast<std::uint64_t>(number);
  for (int i = 0; i < 8; ++i) {
    char pair[3];
    std::snprintf(pair, sizeof pair, "%02X", static_cast<unsigned>(bits >> (8 * i) & 0xFF));
    text += pair;
  }
  return text;
}

/// The beginning of the data of an OLE frame: its corners, clockwise from the upper left one.
std::string frame_data(Point upper_left, Point lower_right) {
  const Point corners[] = {
      upper_left, {lower_right.x, upper_left.y, 0}, lower_right, {upper_left.x, lower_right.y, 0}};
  std::string text = "8155";
  for (const Point& corner : corners) {
    text += hexadecimal(corner.x) + hexadecimal(corner.y) + hexadecimal(corner.z);
  }
  return text + "0000ABCD";
}

TEST(CurveKinds, AFrameIsWhereItsDataSaysAndIsMovedThere) {
  const auto frame = [](Point upper_left, Point lower_right) {
    return drawing_text(head("OLE2FRAME", "36") +
                        "100 AcDbOle2Frame\n70 2\n3 OLE\n10 1\n20 8\n30 0\n11 5\n21 2\n31 0\n71 2\n"
                        "72 0\n90 102\n310 " +
                        frame_data(upper_left, lower_right) + "\n310 D0CF\n1 OLE\n");
  };
  const EntityScene scene(drawing::Drawing::read(frame({10, 80, 0}, {50, 20, 0}), "ole.dxf"));
  expect_value(scene.get("36", Member::Width), 40.0, "not what stands beside the data");
  scene.call("36", Member::Move, at(0, 0), at(5, -5));
  scene.call("36", Member::ScaleEntity, at(15, 15), 2.0);
  const EntityScene saved = scene.saved();
  expect_value(saved.get("36", Member::InsertionPoint), at(15, 135), "upper left");
  expect_value(saved.get("36", Member::Height), 120.0, "height");
  EXPECT_NE(scene.bytes().find(frame_data({15, 135, 0}, {95, 15, 0})), std::string::npos);
  scene.put("36", Member::InsertionPoint, at(0, 0));
  EXPECT_NE(scene.bytes().find(frame_data({0, 0, 0}, {80, -120, 0})), std::string::npos);
}

TEST(CurveKinds, TakeOtherPoints) {
  const EntityScene scene(kinds());
  scene.put("30", Member::Coordinates, basic::Doubles{0, 0, 0, 1, 0, 0, 0, 1, 0, 1, 1, 0});
  scene.call("35", Member::SetControlPoint, 3, at(9, 9));
  scene.put("33", Member::SecondPoint, at(1, 5));
  const EntityScene saved = scene.saved();
  expect_value(saved.call("30", Member::Coordinate, 3), at(1, 1), "solid");
  expect_value(saved.call("35", Member::GetControlPoint, 3), at(9, 9), "spline");
  EXPECT_TRUE(saved.get("35", Member::NumberOfFitPoints) == Value(0)) << "no longer what it was";
  expect_value(saved.get("33", Member::DirectionVector), at(0, 1), "ray");
  EXPECT_EQ(failure_of([&] {
              scene.put("32", Member::Coordinates, basic::Doubles{0, 0, 0});
            }),
            wrong_element_count);
  EXPECT_EQ(failure_of([&] { scene.put("35", Member::Degree, 7); }), unknown_member);
}

}  // namespace
}  // namespace velmar::embedded
