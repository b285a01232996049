#include <cmath>
#include <limits>
#include <numbers>

#include "drawing/entity.h"
#include "drawing/geometry/ocs.h"
#include "near.h"

namespace velmar::drawing {
namespace {

using std::numbers::pi;

struct Map {
  const char* name;
  Matrix matrix;
};

const Map maps[] = {
    {"move", translation({3, -7, 11})},
    {"turn in the plane", rotation({1, 2, 0}, z_axis, 2.5)},
    {"turn in space", rotation({1, 2, 3}, {1, -2, 0.5}, 1.1)},
    {"mirror upright", reflection({1, 2, 3}, {1, 2, 0})},
    {"mirror level", reflection({0, 0, 2}, z_axis)},
    {"mirror askew", reflection({1, 2, 3}, {3, 1, -2})},
    {"scale", scaling({5, 5, 5}, 2.5)},
    {"all", scaling({1, 0, 0}, 0.4) * reflection({}, {1, 1, 1}) * rotation({}, {1, 2, 3}, 4)},
};

const Point normals[] = {{0, 0, 1}, {0, 0, -1}, {1, 2, 3}, {0.001, 0, 1}};

void expect_same_way(const std::vector<Point>& before, const std::vector<Point>& after,
                     const Matrix& matrix) {
  ASSERT_EQ(before.size(), after.size());
  const bool reversed = !near(matrix(before.front()), after.front());
  for (std::size_t i = 0; i < before.size(); ++i)
    ASSERT_TRUE(near(matrix(before[i]), after[reversed ? after.size() - 1 - i : i]));
}

/// Holds the image of the outline, and no more than the outline's chords leave out.
void expect_box_of_way(const std::vector<Point>& before, const Box& after, const Matrix& matrix) {
  Box image;
  for (Point point : before) image.add(matrix(point));
  Box both = after;
  both.add(image);
  EXPECT_TRUE(near(both, after, 1e-9));
  EXPECT_TRUE(near(image, after, 0.005));
}

template <class Kind>
void expect_moved(const Kind& before, const Map& map, bool same_way) {
  SCOPED_TRACE(map.name);
  Kind after = before;
  transform(after, map.matrix);
  const double factor = stretch(map.matrix);
  EXPECT_NEAR(length(after), length(before) * factor, 1e-9);
  if constexpr (requires { area(before); }) {
    EXPECT_NEAR(area(after), area(before) * factor * factor, 1e-9);
  }
  expect_box_of_way(outline(before), extents(after), map.matrix);
  if (same_way) expect_same_way(outline(before), outline(after), map.matrix);
}

TEST(Transform, KeepsTheDrawnCurveForEveryKindAndNormal) {
  for (const Map& map : maps) {
    for (Point normal : normals) {
      expect_moved(Line{{1, 2, 3}, {4, 6, 3}, 0, normal}, map, true);
      expect_moved(Circle{{3, 4, 5}, 2, 0, normal}, map, false);
      expect_moved(Arc{{3, 4, 5}, 2, 5, 1.5, 0, normal}, map, true);
      const Point major = cross(normal, {1, 1, 1});
      expect_moved(Ellipse{{1, 2, 3}, major, 0.4, 0, 2 * pi, normal}, map, false);
      expect_moved(Ellipse{{1, 2, 3}, major, 0.4, 5, 1.5, normal}, map, true);
      LwPolyline light{1, 0, 2.5, 0, normal, {{0, 0, 0, 0, 0.5}, {4, 1, 0, 0, -1.5}, {2, 5}}};
      expect_moved(light, map, true);
      Polyline heavy;
      heavy.normal = normal;
      heavy.elevation_point.z = 2.5;
      heavy.vertices = {{{0, 0, 2.5}, 0, 0, 0.5}, {{4, 1, 2.5}, 0, 0, -1.5}, {{2, 5, 2.5}}};
      expect_moved(heavy, map, true);
      heavy.flags = Polyline::is_3d_flag | Polyline::closed_flag;
      heavy.vertices[2].position.z = 7;
      expect_moved(heavy, map, true);
    }
  }
}

TEST(Transform, ThicknessGoesAlong) {
  const Point normal{1, 2, 3}, place{3, 4, 5};
  for (const Map& map : maps) {
    SCOPED_TRACE(map.name);
    Box image;
    const Point base = ocs_to_world(normal)(place);
    image.add(map.matrix(base));
    image.add(map.matrix(base + unit_normal(normal) * 3));

    Circle circle{place, 1e-9, 3, normal};
    transform(circle, map.matrix);
    EXPECT_TRUE(near(extents(circle), image, 1e-8));
    Line line{base, base, 3, normal};
    transform(line, map.matrix);
    EXPECT_TRUE(near(extents(line), image));
    LwPolyline light{0, 0, place.z, 3, normal, {{place.x, place.y}}};
    transform(light, map.matrix);
    EXPECT_TRUE(near(extents(light), image));
  }
}

TEST(Transform, AnInsertDrawsTheImageOfItsBlock) {
  for (const Map& map : maps) {
    for (Point normal : normals) {
      const Insert before{"B", {1, 2, 3}, 2, -3, 0.5, 0.7, 3, 2, 10, 20, normal};
      Insert after = before;
      transform(after, map.matrix);
      const Point base{1, 1, 0}, corner{4, 5, 6};
      EXPECT_TRUE(near(placement(after, base, 2, 1)(corner),
                       map.matrix(placement(before, base, 2, 1)(corner))))
          << map.name;
    }
  }
}

TEST(InsertGeometry, SpacingTurnsButIsNotScaled) {
  const Insert insert{"B", {100, 0, 0}, 2, 2, 2, pi / 2, 2, 2, 10, 20};
  EXPECT_TRUE(near(placement(insert, {1, 0, 0})({1, 0, 0}), {100, 0, 0}));
  EXPECT_TRUE(near(placement(insert, {1, 0, 0}, 1, 0)({2, 0, 0}), {100, 12, 0}));
  EXPECT_TRUE(near(placement(insert, {1, 0, 0}, 0, 1)({1, 0, 0}), {80, 0, 0}));
}

template <class Kind>
void use(Kind entity) {
  if constexpr (requires { length(entity); }) (void)length(entity);
  if constexpr (requires { area(entity); }) (void)area(entity);
  (void)extents(entity);
  EXPECT_LT(outline(entity).size(), 1000000u);
  transform(entity, maps[7].matrix);
  transform(entity, scaling({}, 0));
  transform(entity, scaling({}, std::numeric_limits<double>::quiet_NaN()));
  EXPECT_LT(outline(entity).size(), 1000000u);
}

TEST(Degenerate, ValuesOfDamagedFilesAreFinishedWith) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double infinity = std::numeric_limits<double>::infinity();
  for (double v : {0.0, -1.0, 1e-320, 1e300, -1e300, nan, infinity, -infinity}) {
    for (Point normal : {Point{}, Point{v, v, v}, Point{0, 0, v}}) {
      use(Line{{v, 0, 0}, {0, v, 0}, v, normal});
      use(Circle{{v, 0, 0}, v, v, normal});
      use(Arc{{v, 0, 0}, v, v, -v, v, normal});
      use(Ellipse{{v, 0, 0}, {v, 1, 0}, v, 0, v, normal});
      use(Ellipse{{0, 0, 0}, {1, 0, 0}, v, v, 1, normal});
      use(LwPolyline{1, v, v, v, normal, {{0, 0, v, 1, v}, {1, 0, 0, 0, 1}, {1, 0, 0, v, -v}}});
      Text text{{v, 0, 0}, {0, v, 0}, v, "text", v, v, v};
      for (text.horizontal = 0; text.horizontal < 6; ++text.horizontal) use(text);
    }
  }
}

TEST(Rotation, LeavesItsBaseWhereItIsToTheLastBit) {
  const Point base{523020722.8743102, 1558654947.981566, 12.3};
  for (const Point normal : {z_axis, Point{0.3, -0.2, 0.8}}) {
    Text text;
    text.normal = z_axis;
    text.insertion = base;
    transform(text, rotation(base, normal, 0.37));
    if (normal == z_axis) {
      EXPECT_EQ(text.insertion, base);
    }
    EXPECT_EQ(rotation(base, normal, 0.37)(base), base);
  }
  EXPECT_EQ(scaling(base, 3)(base), base);
  EXPECT_EQ(reflection(base, {1, 2, 0})(base), base);
}

}  // namespace
}  // namespace velmar::drawing
