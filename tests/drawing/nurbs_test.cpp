#include "drawing/geometry/nurbs.h"

#include <cmath>
#include <limits>
#include <numbers>

#include "drawing/entities/spline.h"
#include "near.h"

namespace velmar::drawing {
namespace {

using std::numbers::pi;

/// A circle of radius 2 about (1, 1, 3) by nine rational control points.
Nurbs circle() {
  const double w = std::sqrt(0.5);
  Nurbs curve{2, {0, 0, 0, 1, 1, 2, 2, 3, 3, 4, 4, 4}, {}};
  const Point corners[] = {{2, 0, 0},   {2, 2, 0},  {0, 2, 0},  {-2, 2, 0}, {-2, 0, 0},
                           {-2, -2, 0}, {0, -2, 0}, {2, -2, 0}, {2, 0, 0}};
  for (std::size_t i = 0; i < 9; ++i) {
    curve.control_points.push_back({corners[i] + Point{1, 1, 3}, i % 2 == 1 ? w : 1});
  }
  return curve;
}

/// One piece of a cubic: x = 3t, y = 9t(1-t)(1-2t).
Nurbs wave() { return {3, {0, 0, 0, 0, 1, 1, 1, 1}, {{{0, 0}}, {{1, 3}}, {{2, -3}}, {{3, 0}}}}; }

TEST(Nurbs, OfACircleIsACircle) {
  const Nurbs curve = circle();
  ASSERT_TRUE(is_sound(curve));
  for (double t = 0; t <= 4; t += 0.17) {
    EXPECT_NEAR(norm(evaluate(curve, t).position - Point{1, 1, 3}), 2, 1e-12) << t;
  }
  EXPECT_NEAR(length(curve), 4 * pi, 1e-10);
  EXPECT_NEAR(swept_area(curve, {3, 1, 3}).z, 2 * 4 * pi, 1e-9);
  EXPECT_TRUE(near(extents(curve), Box{{-1, -1, 3}, {3, 3, 3}}));
}

TEST(Nurbs, TurnsWhereItsDerivativeSays) {
  const Nurbs curve = wave();
  const double t = 0.3, h = 1e-6;
  const Point slope =
      (evaluate(curve, t + h).position - evaluate(curve, t - h).position) * (1 / (2 * h));
  EXPECT_TRUE(near(evaluate(curve, t).derivative, slope, 1e-6));
  // y' = 9 (1 - 6t + 6t^2) is 0 at t = (3 -+ sqrt 3) / 6, where y is +- sqrt 3 / 2.
  const double top = std::sqrt(3.0) / 2;
  EXPECT_TRUE(near(extents(curve), Box{{0, -top, 0}, {3, top, 0}}));
  const Nurbs back = reversed(curve);
  EXPECT_TRUE(near(evaluate(back, -t).position, evaluate(curve, t).position));
  EXPECT_TRUE(near(evaluate(back, first_parameter(back)).position, {3, 0, 0}));
}

TEST(Nurbs, IsNoCurveWithoutKnotsAndPointsThatFit) {
  const auto unsound = [](auto change) {
    Nurbs curve = circle();
    change(curve);
    return !is_sound(curve);
  };
  EXPECT_TRUE(unsound([](Nurbs& c) { c.degree = 0; }));
  EXPECT_TRUE(unsound([](Nurbs& c) { c.degree = 2000000000; }));
  EXPECT_TRUE(unsound([](Nurbs& c) { c.knots.pop_back(); }));
  EXPECT_TRUE(unsound([](Nurbs& c) { c.knots[4] = -1; }));
  EXPECT_TRUE(unsound([](Nurbs& c) { c.control_points[3].weight = 0; }));
  EXPECT_TRUE(unsound([](Nurbs& c) { c.control_points[3].position.x = std::nan(""); }));
  EXPECT_TRUE(unsound([](Nurbs& c) { c.knots.assign(12, 1.0); }));
  EXPECT_TRUE(unsound([](Nurbs& c) { c.control_points.clear(); }));
  Spline by_fit_points;
  by_fit_points.fit_points = {{0, 0}, {1, 1}};
  EXPECT_TRUE(extents(by_fit_points).empty());
}

}  // namespace
}  // namespace velmar::drawing
