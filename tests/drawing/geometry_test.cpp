#include <cmath>
#include <numbers>

#include "drawing/geometry/bulge.h"
#include "drawing/geometry/conic.h"
#include "drawing/geometry/ocs.h"
#include "drawing/geometry/plane_map.h"
#include "near.h"

namespace velmar::drawing {
namespace {

using std::numbers::pi;

TEST(Matrix, AppliesTheSecondFactorFirst) {
  const Matrix both = translation({10, 0, 0}) * rotation({}, z_axis, pi / 2);
  EXPECT_TRUE(near(both({1, 0, 0}), {10, 1, 0}));
  EXPECT_TRUE(near(rotation({1, 1, 5}, x_axis, pi / 2)({7, 2, 5}), {7, 1, 6}));
  EXPECT_TRUE(near(scaling({1, 2, 3}, 3)({2, 2, 2}), {4, 2, 0}));
  EXPECT_TRUE(near(reflection({5, 0, 0}, {2, 0, 0})({1, 2, 3}), {9, 2, 3}));
  EXPECT_DOUBLE_EQ(determinant(reflection({}, {1, 2, 3})), -1);
  EXPECT_DOUBLE_EQ(stretch(scaling({1, 1, 1}, 2.5) * reflection({}, y_axis)), 2.5);
}

TEST(Ocs, FollowsTheArbitraryAxisAlgorithm) {
  const double slightly = 1.0 / 64;
  struct {
    Point normal, x, y;
  } const rows[] = {
      {{0, 0, 1}, {1, 0, 0}, {0, 1, 0}},
      {{0, 0, -3}, {-1, 0, 0}, {0, 1, 0}},
      {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}},
      {{0, 1, 0}, {-1, 0, 0}, {0, 0, 1}},
      {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}},
      // Just inside the limit and on it: world y, then world z is the helper.
      {{std::sin(0.015), 0, std::cos(0.015)}, {std::cos(0.015), 0, -std::sin(0.015)}, {0, 1, 0}},
      {{slightly, 0, std::sqrt(1 - slightly * slightly)},
       {0, 1, 0},
       {-std::sqrt(1 - slightly * slightly), 0, slightly}},
  };
  for (const auto& row : rows) {
    const Matrix world = ocs_to_world(row.normal);
    EXPECT_TRUE(near(world.x, row.x, 1e-15));
    EXPECT_TRUE(near(world.y, row.y, 1e-15));
    EXPECT_TRUE(near(world_to_ocs(row.normal)(world({1, 2, 3})), {1, 2, 3}, 1e-14));
  }
}

TEST(PlaneMap, MovingIsExactlyNeutralForAnyNormal) {
  const Point normal = unit_normal({1, 2, 3});
  const PlaneMap plane = plane_map(translation({7, -8, 9}), normal);
  EXPECT_EQ(plane.normal, normal);
  EXPECT_EQ(plane.stretch, 1);
  EXPECT_EQ(plane.rise, 1);
  EXPECT_EQ(plane.angle(0.1), 0.1);
  EXPECT_EQ(plane.map.direction({0.1, 0.2, 0.3}), (Point{0.1, 0.2, 0.3}));
}

TEST(Bulge, GivesCentreRadiusAndSweep) {
  const double quarter = std::sqrt(2.0) - 1;
  struct {
    BulgeVertex from, to;
    Point center;
    double radius, sweep;
  } const rows[] = {
      {{0, 0, 0, 0, 1}, {2, 0}, {1, 0, 0}, 1, pi},
      {{0, 0, 0, 0, -1}, {2, 0}, {1, 0, 0}, 1, -pi},
      {{1, 0, 0, 0, quarter}, {0, 1}, {0, 0, 0}, 1, pi / 2},
      {{1, 0, 0, 0, -quarter}, {0, 1}, {1, 1, 0}, 1, -pi / 2},
      {{1, 0, 0, 0, 1 / quarter}, {0, 1}, {1, 1, 0}, 1, 3 * pi / 2},
  };
  for (const auto& row : rows) {
    const BulgeArc arc = arc_of(row.from, row.to);
    EXPECT_TRUE(near(arc.center, row.center));
    EXPECT_NEAR(arc.radius, row.radius, 1e-12);
    EXPECT_NEAR(arc.sweep, row.sweep, 1e-12);
    EXPECT_TRUE(near(point_on(row.from, arc, 0), {row.from.x, row.from.y, 0}));
    EXPECT_TRUE(near(point_on(row.from, arc, arc.sweep), {row.to.x, row.to.y, 0}));
    const Point start{std::cos(arc.start_angle), std::sin(arc.start_angle), 0};
    EXPECT_TRUE(near(arc.center + start * arc.radius, {row.from.x, row.from.y, 0}));
  }
}

TEST(Bulge, LengthAndAreaOfShapesDoneByHand) {
  struct {
    std::vector<BulgeVertex> vertices;
    bool closed;
    double length, area;
  } const rows[] = {
      {{}, true, 0, 0},
      {{{5, 5, 0, 0, 1}}, true, 0, 0},
      {{{0, 0}, {3, 0}, {3, 4}}, true, 12, 6},
      {{{0, 0}, {3, 0}, {3, 4}}, false, 7, 6},
      {{{0, 0}, {3, 4}, {3, 0}}, true, 12, -6},
      {{{0, 0, 0, 0, 1}, {2, 0, 0, 0, 1}}, true, 2 * pi, pi},
      {{{0, 0, 0, 0, -1}, {2, 0, 0, 0, -1}}, true, 2 * pi, -pi},
      {{{0, 0, 0, 0, 1}, {2, 0, 0, 0, 1}}, false, pi, pi / 2},
      // A square with one side bent inward by a half circle.
      {{{0, 0, 0, 0, -1}, {2, 0}, {2, 2}, {0, 2}}, true, 6 + pi, 4 - pi / 2},
      // Two equal loops turning opposite ways cancel.
      {{{0, 0}, {2, 2}, {2, 0}, {0, 2}}, true, 4 + 2 * std::sqrt(8.0), 0},
  };
  for (const auto& row : rows) {
    EXPECT_NEAR(path_length(row.vertices, row.closed), row.length, 1e-12);
    EXPECT_NEAR(signed_area(row.vertices, row.closed), row.area, 1e-12);
  }
}

TEST(Bulge, FlatArcsAndFarPlacesKeepTheirDigits) {
  const std::vector<BulgeVertex> flat{{0, 0, 0, 0, 1e-9}, {1e6, 0}};
  EXPECT_NEAR(extents(flat, false, Matrix{}).min.y, -5e-4, 1e-9);
  EXPECT_NEAR(signed_area(flat, false), 1e6 * 5e-4 * 2 / 3, 1e-9);
  EXPECT_NEAR(path_length(flat, false), 1e6, 1e-6);
  EXPECT_NEAR(segment_area(1, 0.0999), (0.0999 - std::sin(0.0999)) / 2, 1e-16);
  const std::vector<BulgeVertex> far{
      {1e8, 1e8}, {1e8 + 1, 1e8}, {1e8 + 1, 1e8 + 1}, {1e8, 1e8 + 1}};
  EXPECT_EQ(signed_area(far, true), 1);
}

TEST(Bulge, FlattenKeepsToTheStepAndClosesTheWay) {
  const std::vector<BulgeVertex> circle{{0, 0, 0, 0, 1}, {2, 0, 0, 0, 1}};
  const auto points = flatten(circle, true, pi / 4);
  ASSERT_EQ(points.size(), 9u);
  EXPECT_TRUE(near(points[2], {1, -1, 0}));
  EXPECT_TRUE(near(points[8], points[0]));
  EXPECT_LT(flatten(circle, true, 1e-300).size(), 1000000u);
}

}  // namespace
}  // namespace velmar::drawing
