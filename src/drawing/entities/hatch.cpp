#include "drawing/entities/hatch.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

#include "drawing/geometry/ocs.h"

namespace velmar::drawing {
namespace {

Matrix to_world(const Hatch& hatch) {
  return ocs_to_world(hatch.normal) * translation({0, 0, hatch.elevation_point.z});
}

/// A loop as a polygon, to ask what lies in it.
struct Polygon {
  std::vector<Point> points;
  Box box;

  explicit Polygon(const HatchLoop& loop) : points(flatten(loop)) {
    for (const Point& point : points) box.add(point);
  }

  bool encloses(Point p) const {
    bool inside = false;
    for (std::size_t i = 1; i < points.size(); ++i) {
      const Point &a = points[i - 1], &b = points[i];
      if ((a.y > p.y) == (b.y > p.y)) continue;
      if (p.x < a.x + (p.y - a.y) / (b.y - a.y) * (b.x - a.x)) inside = !inside;
    }
    return inside;
  }

  /// By most of its points: loops may touch.
  bool encloses(const Polygon& other) const {
    const bool apart = other.box.min.x < box.min.x || other.box.max.x > box.max.x ||
                       other.box.min.y < box.min.y || other.box.max.y > box.max.y;
    if (apart || other.points.empty()) return false;
    constexpr std::size_t most_asked = 32;
    const std::size_t step = other.points.size() / most_asked + 1;
    int votes = 0;
    for (std::size_t i = 0; i + 1 < other.points.size(); i += step) {
      const Point middle = (other.points[i] + other.points[i + 1]) * 0.5;
      votes += encloses(middle) ? 1 : -1;
    }
    return votes > 0;
  }
};

}  // namespace

void detach(Hatch& hatch) {
  hatch.associative = 0;
  for (HatchLoop& loop : hatch.loops) loop.sources.clear();
}

std::vector<int> loop_depths(const Hatch& hatch) {
  std::vector<Polygon> polygons(hatch.loops.begin(), hatch.loops.end());
  std::vector<std::size_t> from_left(polygons.size());
  std::iota(from_left.begin(), from_left.end(), std::size_t{0});
  std::ranges::stable_sort(from_left, {}, [&](std::size_t i) { return polygons[i].box.min.x; });
  std::vector<int> depths(polygons.size());
  for (std::size_t i = 0; i < from_left.size(); ++i) {
    const Polygon& outer = polygons[from_left[i]];
    const auto encloses = [&](std::size_t j) {
      if (outer.encloses(polygons[from_left[j]])) ++depths[from_left[j]];
    };
    for (std::size_t j = i + 1; j < from_left.size(); ++j) {
      if (!(polygons[from_left[j]].box.min.x <= outer.box.max.x)) break;
      encloses(j);
    }
  }
  return depths;
}

bool fills(const Hatch& hatch, int depth) {
  if (hatch.style == Hatch::normal_style) return depth % 2 == 0;
  return depth == 0;
}

double area(const Hatch& hatch) {
  const std::vector<int> depths = loop_depths(hatch);
  double sum = 0;
  for (std::size_t i = 0; i < depths.size(); ++i) {
    const bool is_hole = hatch.style == Hatch::normal_style  ? depths[i] % 2 == 1
                         : hatch.style == Hatch::outer_style ? depths[i] == 1
                                                             : false;
    if (!is_hole && !fills(hatch, depths[i])) continue;
    sum += std::abs(signed_area(hatch.loops[i])) * (is_hole ? -1 : 1);
  }
  return std::max(sum, 0.0);
}

Box extents(const Hatch& hatch) {
  Box box;
  for (const HatchLoop& loop : hatch.loops) box.add(extents(loop, to_world(hatch)));
  return box;
}

void transform(Hatch& hatch, const Matrix& matrix) {
  const PlaneMap plane = plane_map(matrix, hatch.normal);
  for (HatchLoop& loop : hatch.loops) transform(loop, plane);
  for (PatternLine& line : hatch.lines) transform(line, plane);
  for (Point& seed : hatch.seeds) {
    seed = plane.map(seed);
    seed.z = 0;
  }
  if (!hatch.is_solid()) {
    hatch.angle = plane.angle(hatch.angle);
    hatch.scale *= plane.stretch;
  }
  hatch.pixel_size *= plane.stretch;
  hatch.elevation_point.z = plane.map({0, 0, hatch.elevation_point.z}).z;
  hatch.normal = plane.normal;
}

std::vector<std::vector<Point>> outlines(const Hatch& hatch) {
  const Matrix world = to_world(hatch);
  std::vector<std::vector<Point>> chains;
  for (const HatchLoop& loop : hatch.loops) {
    std::vector<Point> chain = flatten(loop);
    for (Point& point : chain) point = world(point);
    chains.push_back(std::move(chain));
  }
  return chains;
}

}  // namespace velmar::drawing
