#include <cmath>
#include <numbers>

#include "drawing/entities/arc.h"
#include "drawing/entities/circle.h"
#include "drawing/entities/ellipse.h"
#include "drawing/entities/line.h"
#include "near.h"

namespace velmar::drawing {
namespace {

using std::numbers::pi;
const double half_root = std::sqrt(0.5);

TEST(LineGeometry, ThicknessIsPartOfTheBox) {
  const Line line{{1, 5, 0}, {4, 1, 0}, -2, {0, 0, 3}};
  EXPECT_DOUBLE_EQ(length(line), 5);
  EXPECT_TRUE(near(extents(line), {{1, 1, -2}, {4, 5, 0}}));
}

TEST(CircleGeometry, BoxIsExactForTiltedNormals) {
  EXPECT_TRUE(near(extents(Circle{{3, 4, 0}, 2, 0, {0, 0, -1}}), {{-5, 2, 0}, {-1, 6, 0}}));
  EXPECT_TRUE(near(extents(Circle{{0, 0, 0}, 1, 0, {half_root, 0, half_root}}),
                   {{-half_root, -1, -half_root}, {half_root, 1, half_root}}));
  EXPECT_TRUE(near(extents(Circle{{0, 0, 1}, 2, 5, {1, 0, 0}}), {{1, -2, -2}, {6, 2, 2}}));
  EXPECT_TRUE(near(extents(Circle{{1, 2, 3}, 0, 0, {0, 0, 0}}), {{1, 2, 3}, {1, 2, 3}}));
}

TEST(ArcGeometry, BoxHasOnlyTheArcsOwnSpan) {
  const double degree = pi / 180;
  struct {
    double start, end;
    Box box;
    double area;
  } const rows[] = {
      {0, 90, {{0, 0, 0}, {1, 1, 0}}, pi / 4 - 0.5},
      {90, 0, {{-1, -1, 0}, {1, 1, 0}}, 3 * pi / 4 + 0.5},
      {350,
       10,
       {{std::cos(10 * degree), -std::sin(10 * degree), 0}, {1, std::sin(10 * degree), 0}},
       (20 * degree - std::sin(20 * degree)) / 2},
      {-190,
       190,
       {{-1, -std::sin(10 * degree), 0}, {-std::cos(10 * degree), std::sin(10 * degree), 0}},
       (20 * degree - std::sin(20 * degree)) / 2},
      {30, 30, {{-1, -1, 0}, {1, 1, 0}}, pi},
      {0, 360, {{-1, -1, 0}, {1, 1, 0}}, pi},
  };
  for (const auto& row : rows) {
    const Arc arc{{}, 1, row.start * degree, row.end * degree};
    EXPECT_TRUE(near(extents(arc), row.box)) << row.start;
    EXPECT_NEAR(area(arc), row.area, 1e-12) << row.start;
    EXPECT_TRUE(near(outline(arc).front(), start_point(arc)));
    EXPECT_TRUE(near(outline(arc).back(), end_point(arc)));
  }
}

TEST(ArcGeometry, AMirrorSwapsTheEndsAndKeepsTheNormal) {
  Arc arc{{2, 0, 0}, 1, 0, pi / 2};
  transform(arc, reflection({}, x_axis));
  EXPECT_EQ(arc.normal, z_axis);
  EXPECT_NEAR(arc.start_angle, pi / 2, 1e-12);
  EXPECT_NEAR(arc.end_angle, pi, 1e-12);
  EXPECT_TRUE(near(arc.center, {-2, 0, 0}));
}

TEST(EllipseGeometry, LengthIsGoodToTwelveDigits) {
  // Complete elliptic integrals; the flat one by the series of E for a small complement.
  EXPECT_NEAR(length(Ellipse{{}, {2, 0, 0}, 0.5}), 9.688448220547675, 1e-11);
  EXPECT_NEAR(length(Ellipse{{}, {0, 0, 1}, 1e-6, 0, 2 * pi, x_axis}), 4.0000000000294036, 4e-12);
  EXPECT_NEAR(length(Ellipse{{}, {1, 0, 0}, 0}), 4, 4e-12);
  EXPECT_NEAR(length(Ellipse{{}, {3, 0, 0}, 1, 1, 1 + 1e-5}), 3e-5, 3e-16);
  const Ellipse half{{}, {2, 0, 0}, 0.5, 1, 1 + pi};
  EXPECT_NEAR(length(half), 9.688448220547675 / 2, 1e-11);
}

TEST(EllipseGeometry, AreaAndBoxOfParts) {
  const Ellipse whole{{1, 1, 0}, {half_root * 2, half_root * 2, 0}, 0.5};
  EXPECT_NEAR(area(whole), 2 * pi, 1e-12);
  const double reach = std::sqrt(2.5);
  EXPECT_TRUE(near(extents(whole), {{1 - reach, 1 - reach, 0}, {1 + reach, 1 + reach, 0}}));

  const Ellipse upper{{}, {2, 0, 0}, 0.5, 0, pi};
  EXPECT_FALSE(is_closed(upper));
  EXPECT_NEAR(area(upper), pi, 1e-12);
  EXPECT_TRUE(near(extents(upper), {{-2, 0, 0}, {2, 1, 0}}));

  // Seen from below the minor axis points the other way.
  const Ellipse below{{}, {2, 0, 0}, 0.5, 0, pi / 2, {0, 0, -1}};
  EXPECT_NEAR(area(below), pi / 2 - 1, 1e-12);
  EXPECT_TRUE(near(extents(below), {{0, -1, 0}, {2, 0, 0}}));
}

TEST(EllipseGeometry, AnglesAndParametersAreInverse) {
  const Ellipse ellipse{{}, {2, 0, 0}, 0.5};
  EXPECT_NEAR(angle_of_parameter(ellipse, pi / 4), std::atan(0.5), 1e-12);
  for (double t : {0.0, 0.3, pi / 2, 2.5, pi, 4.0, 2 * pi, 7.0, -1.0})
    EXPECT_NEAR(parameter_of_angle(ellipse, angle_of_parameter(ellipse, t)), t, 1e-12);
}

TEST(EllipseGeometry, UnevenScalingIsExact) {
  const Matrix maps[] = {
      {{1, 0.5, 0}, {0, 3, 0}, {0, 0, 2}, {4, 5, 6}},
      {{1, 0.5, 0}, {0, -3, 0}, {0, 0, 2}, {4, 5, 6}},
      {{1, 0, 0}, {0, 6, 0}, {0, 0, 1}, {}},
  };
  for (const Matrix& uneven : maps) {
    for (Point major : {Point{2, 1, 0}, Point{2, 0, 0}}) {
      const Ellipse before{{1, 2, 3}, major, 0.4, 0.5, 2.5};
      Ellipse after = before;
      transform(after, uneven);
      EXPECT_LE(after.ratio, 1);
      EXPECT_EQ(after.normal, z_axis);
      const bool mirrored = determinant(uneven) < 0;
      for (double t = 0; t <= 2; t += 0.25) {
        const double image = after.start_parameter + (mirrored ? 2 - t : t);
        EXPECT_TRUE(near(point_at(after, image), uneven(point_at(before, 0.5 + t))));
      }
    }
  }
}

}  // namespace
}  // namespace velmar::drawing
