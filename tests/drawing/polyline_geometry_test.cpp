#include <cmath>
#include <numbers>

#include "drawing/entities/lwpolyline.h"
#include "drawing/entities/polyline.h"
#include "drawing/geometry/ocs.h"
#include "near.h"

namespace velmar::drawing {
namespace {

using std::numbers::pi;

LwPolyline donut(double width) {
  LwPolyline polyline;
  polyline.flags = LwPolyline::closed_flag;
  polyline.constant_width = width;
  polyline.vertices = {{0, 0, 0, 0, 1}, {2, 0, 0, 0, 1}};
  return polyline;
}

TEST(LwPolylineGeometry, BoxCoversWidths) {
  EXPECT_TRUE(near(extents(donut(0.5)), {{-0.25, -1.25, 0}, {2.25, 1.25, 0}}));

  LwPolyline arrow;
  arrow.vertices = {{0, 0, 2, 4, 0}, {10, 0}};
  EXPECT_TRUE(near(extents(arrow), {{0, -2, 0}, {10, 2, 0}}));
  arrow.constant_width = 100;  // does not count beside widths of vertices
  EXPECT_TRUE(near(extents(arrow), {{0, -2, 0}, {10, 2, 0}}));

  LwPolyline diagonal;
  diagonal.constant_width = std::sqrt(2.0);
  diagonal.vertices = {{0, 0}, {3, 3}};
  EXPECT_TRUE(near(extents(diagonal), {{-0.5, -0.5, 0}, {3.5, 3.5, 0}}));
}

/// The edges of an arc from width 0.2 to 1.5, point by point.
Box sampled_edges(const LwPolyline& horn) {
  const BulgeArc arc = arc_of(horn.vertices[0], horn.vertices[1]);
  const Matrix world = ocs_to_world(horn.normal);
  Box sampled;
  for (int i = 0; i <= 20000; ++i) {
    const double part = i / 20000.0, angle = arc.start_angle + part * arc.sweep;
    for (double side : {-0.5, 0.5}) {
      const double radius = arc.radius + side * (0.2 + part * 1.3);
      const Point flat = arc.center + Point{std::cos(angle), std::sin(angle), 0} * radius;
      sampled.add(world(flat + Point{0, 0, horn.elevation}));
    }
  }
  return sampled;
}

TEST(LwPolylineGeometry, BoxOfATaperedArcHoldsItsEdges) {
  LwPolyline horn;
  for (double bulge : {0.2, 1.0, -2.5}) {
    horn.normal = {1, 2, 2};
    horn.elevation = 3;
    horn.vertices = {{1, 1, 0.2, 1.5, bulge}, {4, 2}};
    EXPECT_TRUE(near(extents(horn), sampled_edges(horn), 1e-6)) << bulge;
  }
  // From 1 to 60 degrees: as the width grows the outer edge is farthest right after its start.
  horn.normal = z_axis;
  const double degree = pi / 180;
  horn.vertices = {{std::cos(degree), std::sin(degree), 0.2, 1.5, std::tan(59 * degree / 4)},
                   {std::cos(60 * degree), std::sin(60 * degree)}};
  EXPECT_TRUE(near(extents(horn), sampled_edges(horn), 1e-6));
}

TEST(LwPolylineGeometry, ElevationThicknessAndNormalPlaceTheBox) {
  LwPolyline polyline = donut(0);
  polyline.elevation = 5;
  polyline.thickness = 2;
  polyline.normal = {0, 0, -1};
  EXPECT_TRUE(near(extents(polyline), {{-2, -1, -7}, {0, 1, -5}}));
  EXPECT_TRUE(near(outline(polyline)[0], {0, 0, -5}));
  polyline.vertices = {{0, 0, 0, 0, -1}, {2, 0, 0, 0, -1}};
  EXPECT_NEAR(area(polyline), pi, 1e-12);
}

TEST(LwPolylineGeometry, TransformScalesSizesAndTurnsBulgesOver) {
  LwPolyline polyline = donut(0.5);
  polyline.thickness = 1;
  polyline.elevation = 4;
  transform(polyline, scaling({}, 3) * reflection({}, x_axis));
  EXPECT_EQ(polyline.normal, z_axis);
  EXPECT_NEAR(polyline.vertices[1].x, -6, 1e-12);
  EXPECT_EQ(polyline.vertices[0].bulge, -1);
  EXPECT_NEAR(polyline.constant_width, 1.5, 1e-12);
  EXPECT_NEAR(polyline.thickness, 3, 1e-12);
  EXPECT_NEAR(polyline.elevation, 12, 1e-12);
}

TEST(PolylineGeometry, TheFrameOfASplineIsNotDrawn) {
  Polyline polyline;
  polyline.flags = Polyline::spline_fit_flag;
  polyline.start_width = 0.5;
  polyline.vertices = {{{50, 50, 0}, 0, 0, 0, PolylineVertex::spline_frame_flag},
                       {{0, 0, 0}, 0, 0, 0, 8},
                       {{3, 4, 0}, 1, 2, 0, 8}};
  const auto drawn = curve(polyline);
  ASSERT_EQ(drawn.size(), 2u);
  EXPECT_EQ(drawn[0].start_width, 0.5);
  EXPECT_EQ(drawn[1].start_width, 1);
  EXPECT_DOUBLE_EQ(length(polyline), 5);
  polyline.flags |= Polyline::is_3d_flag;
  EXPECT_DOUBLE_EQ(length(polyline), 5);
  EXPECT_TRUE(near(extents(polyline), {{0, 0, 0}, {3, 4, 0}}));
}

TEST(PolylineGeometry, AreaOfA3dPolylineIsMeasuredInItsPlane) {
  Polyline polyline;
  polyline.flags = Polyline::is_3d_flag | Polyline::closed_flag;
  const Matrix tilt = rotation({1, 2, 3}, {1, 1, 0}, 1) * translation({1e5, 0, 0});
  for (Point corner : {Point{0, 0, 0}, Point{3, 0, 0}, Point{3, 4, 0}, Point{0, 4, 0}})
    polyline.vertices.push_back({tilt(corner), 0, 0, 0, 32});
  EXPECT_NEAR(area(polyline), 12, 1e-9);
  EXPECT_NEAR(length(polyline), 14, 1e-9);
  polyline.flags = Polyline::is_3d_flag;
  EXPECT_NEAR(area(polyline), 12, 1e-9);
  EXPECT_NEAR(length(polyline), 10, 1e-9);
}

TEST(PolylineGeometry, FacesOfAPolyfaceAreNoPlaces) {
  Polyline mesh;
  mesh.flags = Polyline::polyface_flag;
  mesh.vertices = {{{1, 1, 1}, 0, 0, 0, 192}, {{2, 3, 4}, 0, 0, 0, 192}, {{0, 0, 0}, 0, 0, 0, 128}};
  EXPECT_TRUE(near(extents(mesh), {{1, 1, 1}, {2, 3, 4}}));
  transform(mesh, translation({10, 0, 0}));
  EXPECT_EQ(mesh.vertices[2].position, Point{});
  EXPECT_EQ(mesh.vertices[1].position, (Point{12, 3, 4}));
}

}  // namespace
}  // namespace velmar::drawing
