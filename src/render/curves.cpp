#include "render/curves.h"

#include <algorithm>
#include <cmath>

namespace velmar::render {
namespace {

using drawing::BulgeVertex;

/// A place on the way with the width there.
struct Station {
  Point at;
  double width = 0;
};

std::vector<Station> stations(const BulgeVertex& from, const BulgeVertex& to,
                              const Canvas& canvas) {
  std::vector<Station> list{{{from.x, from.y, 0}, from.start_width}};
  if (drawing::is_arc(from)) {
    const drawing::BulgeArc arc = drawing::arc_of(from, to);
    const int chords = drawing::chord_count(arc.sweep, canvas.step(arc.radius));
    for (int i = 1; i < chords; ++i) {
      const double t = double(i) / chords;
      list.push_back({drawing::point_on(from, arc, arc.sweep * t),
                      from.start_width + (from.end_width - from.start_width) * t});
    }
  }
  list.push_back({{to.x, to.y, 0}, from.end_width});
  return list;
}

Point left_of(Point way) {
  const double length = norm(way);
  return length > 0 ? Point{-way.y / length, way.x / length, 0} : Point{};
}

/// To the left corner at the joint of a way with its neighbour, for a width of 2: mitred unless
/// they turn sharply.
Point corner(Point along, Point neighbour) {
  const Point a = left_of(along), b = left_of(neighbour);
  const Point sum = a + b;
  constexpr double sharp = 1;
  if (b == Point{} || dot(sum, sum) < sharp) return a;
  return sum * (2 / dot(sum, sum));
}

/// The way at a station from the last place that is another one, or to the next one; none where the
/// width jumps, as it does at corners where nothing is mitred.
Point way_at(const std::vector<Station>& way, std::size_t i, int step, bool closed) {
  const auto count = static_cast<std::ptrdiff_t>(way.size());
  auto at = static_cast<std::ptrdiff_t>(i);
  for (std::ptrdiff_t tried = 1; tried < count; ++tried) {
    at += step;
    if (at < 0 || at >= count) {
      if (!closed) return {};
      at = at < 0 ? count - 1 : 0;
    }
    const Station& other = way[static_cast<std::size_t>(at)];
    if (other.at != way[i].at) return (other.at - way[i].at) * step;
    if (other.width != way[i].width) return {};
  }
  return {};
}

/// All the same way round, so that they add up.
Chain turned(Chain area, const Canvas& canvas) {
  const Chain seen = canvas.mapped(area);
  double twice = 0;
  for (std::size_t i = 0; i < seen.size(); ++i) {
    twice += cross(seen[i], seen[(i + 1) % seen.size()]).z;
  }
  if (twice < 0) std::ranges::reverse(area);
  return area;
}

/// The areas between the stations.
void draw_wide(const std::vector<Station>& way, bool closed, const drawing::Matrix& plane,
               const Canvas& canvas, const Look& look) {
  std::vector<Chain> areas;
  for (std::size_t i = 0; i + 1 < way.size(); ++i) {
    const Station &a = way[i], &b = way[i + 1];
    if (a.at == b.at) continue;
    const Point along = b.at - a.at;
    const Point to_a = corner(along, way_at(way, i, -1, closed)) * (a.width / 2);
    const Point to_b = corner(along, way_at(way, i + 1, 1, closed)) * (b.width / 2);
    areas.push_back(turned(
        {plane(a.at + to_a), plane(b.at + to_b), plane(b.at - to_b), plane(a.at - to_a)}, canvas));
  }
  canvas.area(areas, look.ink, Rule::nonzero);
}

}  // namespace

Chain chain_of(const drawing::Conic& conic, const Canvas& canvas) {
  const double radius = std::max(norm(conic.cosine), norm(conic.sine));
  const int chords = drawing::chord_count(conic.sweep, canvas.step(radius));
  Chain chain;
  for (int i = 0; i <= chords; ++i) chain.push_back(conic(conic.start + conic.sweep * i / chords));
  return chain;
}

// A cubic between each two points, with the direction from the one before to the one after.
// (E. Catmull, R. Rom: A class of local interpolating splines, 1974.)
Chain smooth(std::span<const Point> points) {
  if (points.size() < 3) return Chain(points.begin(), points.end());
  constexpr int chords = 16;
  Chain chain{points[0]};
  for (std::size_t i = 0; i + 1 < points.size(); ++i) {
    const Point b = points[i], c = points[i + 1];
    const Point a = i > 0 ? points[i - 1] : b, d = i + 2 < points.size() ? points[i + 2] : c;
    const Point from = (c - a) * 0.5, to = (d - b) * 0.5;
    for (int k = 1; k <= chords; ++k) {
      const double t = double(k) / chords, t2 = t * t, t3 = t2 * t;
      chain.push_back(b * (2 * t3 - 3 * t2 + 1) + from * (t3 - 2 * t2 + t) + c * (3 * t2 - 2 * t3) +
                      to * (t3 - t2));
    }
  }
  return chain;
}

void draw_way(std::span<const BulgeVertex> vertices, bool closed, bool whole,
              const drawing::Matrix& plane, const Canvas& canvas, const Look& look) {
  if (vertices.size() < 2) return;
  const std::size_t segments = vertices.size() - (closed ? 0 : 1);
  bool wide = false;
  std::vector<Station> way;
  for (std::size_t i = 0; i < segments; ++i) {
    const BulgeVertex &from = vertices[i], &to = vertices[(i + 1) % vertices.size()];
    wide = wide || from.start_width > 0 || from.end_width > 0;
    const std::vector<Station> piece = stations(from, to, canvas);
    if (!whole && look.pattern != nullptr && !wide) {
      Chain chain;
      for (const Station& station : piece) chain.push_back(plane(station.at));
      canvas.curve(chain, look);
    }
    way.insert(way.end(), piece.begin(), piece.end());
  }
  Look through = look;
  if (wide) {
    draw_wide(way, closed, plane, canvas, look);
    through.pattern = nullptr;  // the edge of a dashed broad line would lie under gaps
  }
  if (!wide && !whole && look.pattern != nullptr) return;
  Chain chain;
  for (const Station& station : way) chain.push_back(plane(station.at));
  canvas.curve(chain, through);
}

}  // namespace velmar::render
