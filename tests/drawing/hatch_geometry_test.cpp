#include <algorithm>
#include <cmath>
#include <numbers>

#include "drawing/error.h"
#include "drawing/explode.h"
#include "drawing/hatch_boundary.h"
#include "drawing/hatch_lines.h"
#include "near.h"

namespace velmar::drawing {
namespace {

using std::numbers::pi;

HatchLoop square(double size, double bulge = 0) {
  HatchLoop loop;
  loop.flags = HatchLoop::polyline_flag;
  loop.vertices = {{.x = -size, .y = -size, .bulge = bulge},
                   {.x = size, .y = -size},
                   {.x = size, .y = size},
                   {.x = -size, .y = size}};
  return loop;
}

/// A line, a half circle, half an ellipse the wrong way round in the file, and a spline.
HatchLoop edges() {
  HatchLoop loop;
  HatchSpline spline;
  spline.knots = {0, 0, 0, 0, 1, 1, 1, 1};
  spline.control_points = {{{0, 0}}, {{0.5, 1}}, {{1.5, -1}}, {{2, 0}}};
  loop.edges = {HatchEdge(HatchLine{{2, 0}, {2, 4}}), HatchEdge(HatchArc{{1, 4}, 1, 0, pi, 1}),
                HatchEdge(HatchEllipse{{0, 2}, {0, 2}, 0.5, -pi, 0, 0}), HatchEdge(spline)};
  return loop;
}

Hatch hatch_of(std::vector<HatchLoop> loops) {
  Hatch hatch;
  hatch.loops = std::move(loops);
  hatch.solid = 0;
  hatch.pattern_type = Hatch::user_defined;
  hatch.lines = user_pattern(0.3, 0.25, true);
  hatch.angle = 0.3;
  hatch.scale = 0.25;
  return hatch;
}

double drawn_length(const Hatch& hatch) {
  double sum = 0;
  for (const HatchSegment& segment : hatch_lines(hatch)) sum += norm(segment.to - segment.from);
  return sum;
}

double distance(Point p, const std::vector<Point>& chain) {
  double least = norm(p - chain.front());
  for (std::size_t i = 1; i < chain.size(); ++i) {
    const Point along = chain[i] - chain[i - 1];
    const double size = dot(along, along);
    const double t = size > 0 ? std::clamp(dot(p - chain[i - 1], along) / size, 0.0, 1.0) : 0;
    least = std::min(least, norm(p - (chain[i - 1] + along * t)));
  }
  return least;
}

/// The same way but for what the chords of arcs leave out.
void expect_same_chain(const std::vector<Point>& before, const std::vector<Point>& after,
                       const Matrix& map) {
  for (const Point& point : before) ASSERT_LT(distance(map(point), after), 0.002);
}

TEST(Hatch, AreaCountsIslandsByTheStyle) {
  Hatch hatch = hatch_of({square(10), square(5), square(2), square(0.5)});
  const double areas[] = {400 - 100 + 16 - 1, 400 - 100, 400};
  for (std::int32_t style = 0; style < 3; ++style) {
    hatch.style = style;
    EXPECT_DOUBLE_EQ(area(hatch), areas[style]) << style;
    // Lines that are a quarter apart, both ways, draw eight of length for one of area.
    EXPECT_NEAR(drawn_length(hatch), 8 * areas[style], 0.02 * areas[style]) << style;
  }
}

TEST(Hatch, AreaOfEdgesIsExactInAnyDirectionOfThem) {
  // A rectangle of 2 by 4, a half disc on top; at the left half an ellipse of half axes 2 and 1 is
  // outside. The spline has as much below the base as above it.
  const double wanted = 8 + pi / 2 + pi;
  HatchLoop loop = edges();
  EXPECT_NEAR(std::abs(signed_area(loop)), wanted, 1e-12);
  for (HatchEdge& edge : loop.edges) {
    edge = reversed(edge);
    EXPECT_NEAR(std::abs(signed_area(loop)), wanted, 1e-12);
  }
  const Box box = extents(loop, Matrix{});
  EXPECT_NEAR(box.max.y, 5, 1e-12);
  EXPECT_NEAR(box.min.x, -1, 1e-12);
}

TEST(Hatch, MovesWithAllThatIsInIt) {
  const Matrix maps[] = {
      translation({3, -7, 11}),
      rotation({1, 2, 0}, z_axis, 2.5),
      rotation({1, 2, 3}, {1, -2, 0.5}, 1.1),
      reflection({1, 2, 3}, {1, 2, 0}),
      reflection({1, 2, 3}, {3, 1, -2}),
      scaling({5, 5, 5}, 2.5),
      scaling({1, 0, 0}, 0.4) * reflection({}, {1, 1, 1}) * rotation({}, {1, 2, 3}, 4)};
  for (const Matrix& map : maps) {
    for (const Point normal : {Point{0, 0, 1}, Point{0, 0, -1}, Point{0.6, 0, 0.8}}) {
      Hatch before = hatch_of({edges(), square(0.3, 0.5)});
      before.normal = normal;
      before.elevation_point.z = 2;
      Hatch after = before;
      transform(after, map);
      const double factor = stretch(map);
      EXPECT_NEAR(area(after), area(before) * factor * factor, 1e-9);
      EXPECT_NEAR(drawn_length(after), drawn_length(before) * factor, 1e-6);
      EXPECT_NEAR(after.scale, before.scale * factor, 1e-12);
      const auto old_chains = outlines(before), new_chains = outlines(after);
      ASSERT_EQ(old_chains.size(), new_chains.size());
      for (std::size_t i = 0; i < old_chains.size(); ++i) {
        expect_same_chain(old_chains[i], new_chains[i], map);
      }
    }
  }
}

TEST(Hatch, StretchedUnevenlyKeepsItsShape) {
  const Matrix stretched{x_axis * 3, y_axis * -1, z_axis, {1, 2, 0}};
  const Hatch before = hatch_of({edges(), square(0.3, 0.5)});
  const auto images_of = images(before, stretched);
  ASSERT_EQ(images_of.size(), 1U);
  const auto& after = std::get<Hatch>(images_of[0]);
  EXPECT_NEAR(area(after), 3 * area(before), 1e-9);
  const Box box = extents(after);
  EXPECT_NEAR(box.min.x, -2, 1e-9);
  EXPECT_NEAR(box.max.y, 2 - extents(before).min.y, 1e-9);
  EXPECT_NEAR(box.min.y, 2 - 5, 1e-9);
}

TEST(HatchLines, AreWhereThePatternSays) {
  Hatch hatch = hatch_of({square(1)});
  hatch.lines = {{0, {0, 0.5}, {0, 1}, {}}};
  const auto lines = hatch_lines(hatch);
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_TRUE(near(lines[0].from, {-1, -0.5}));
  EXPECT_TRUE(near(lines[1].to, {1, 0.5}));
  // Dash, gap, dot, gap: each line begins a fifth farther on.
  hatch.lines = {{0, {0, -0.5}, {0.2, 1}, {0.5, -0.25, 0, -0.25}}};
  double length = 0;
  int dots = 0;
  for (const HatchSegment& segment : hatch_lines(hatch)) {
    length += norm(segment.to - segment.from);
    dots += segment.from == segment.to ? 1 : 0;
  }
  EXPECT_NEAR(length, 2 * 2 * 0.5, 1e-12);
  EXPECT_EQ(dots, 4);
  hatch.solid = 1;
  EXPECT_TRUE(hatch_lines(hatch).empty());
}

TEST(HatchLines, OfTooDensePatternsAreRefused) {
  Hatch hatch = hatch_of({square(1)});
  for (const double offset : {1e-9, 0.0, 1e-300, -1e-12, std::nan("")}) {
    hatch.lines = {{0.3, {}, {0, offset}, {}}};
    EXPECT_THROW(hatch_lines(hatch), Error) << offset;
  }
  hatch.lines = {{0.3, {}, {0.1, 1}, {1e-9, -1e-9}}};
  EXPECT_THROW(hatch_lines(hatch), Error);
}

TEST(StandardPatterns, FollowUnitsScaleAndAngle) {
  const auto inches = standard_pattern("ansi31", PatternUnits::inches, 2, 0);
  ASSERT_TRUE(inches);
  EXPECT_NEAR(norm((*inches)[0].offset), 0.25, 1e-12);
  EXPECT_NEAR((*inches)[0].angle, pi / 4, 1e-12);
  const auto turned = standard_pattern("ANSI37", PatternUnits::millimetres, 1, pi / 4);
  ASSERT_EQ(turned->size(), 2U);
  EXPECT_TRUE(near((*turned)[0].offset, {-3.175, 0}));
  EXPECT_TRUE(near((*turned)[1].offset, {0, -3.175}));
  // The second line of AR-CONC at scale 2 as a drawing has it: from a file with three decimals.
  const auto concrete = standard_pattern("AR-CONC", PatternUnits::millimetres, 2, 0);
  EXPECT_TRUE(near((*concrete)[1].offset, {-70.48565195133398, 382.1132857643599}, 1e-3));
  EXPECT_TRUE(standard_pattern("Solid", PatternUnits::inches, 1, 0)->empty());
  EXPECT_FALSE(standard_pattern("NOWHERE", PatternUnits::inches, 1, 0));
}

TEST(Boundary, IsJoinedFromCurvesInAnyOrder) {
  Hatch hatch;
  hatch.elevation_point.z = 5;
  const Line right{{4, 3, 5}, {4, 0, 5}}, left{{0, 0, 5}, {0, 3, 5}};
  LwPolyline base;
  base.vertices = {{.x = 0, .y = 0}, {.x = 2, .y = -1}, {.x = 4, .y = 0}};
  base.elevation = 5;
  Arc top;
  top.center = {-2, 3, -5};  // seen from below
  top.radius = 2;
  top.end_angle = pi;
  top.normal = -z_axis;
  const std::vector<Body> bodies{right, base, left, top};
  const auto loop = boundary_loop(bodies, hatch);
  ASSERT_TRUE(loop);
  EXPECT_NEAR(std::abs(signed_area(*loop)), 12 + 4 + 2 * pi - 2, 1e-9);
  const std::vector<Body> gap{right, base, left};
  EXPECT_FALSE(boundary_loop(gap, hatch));
}

}  // namespace
}  // namespace velmar::drawing
