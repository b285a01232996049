#include "drawing/hatch_boundary.h"

#include <algorithm>
#include <cmath>

#include "drawing/geometry/angle.h"
#include "drawing/geometry/conic.h"
#include "drawing/geometry/ocs.h"

namespace velmar::drawing {
namespace {

using Edges = std::vector<HatchEdge>;

/// Of the size of what is looked at.
constexpr double flatness = 1e-6;

bool is_flat(Point p) {
  return std::abs(p.z) <= flatness * std::max({1.0, std::abs(p.x), std::abs(p.y)});
}

Point flattened(Point p) { return {p.x, p.y, 0}; }

/// What a body gives to a loop: a way of edges, or the vertices of a closed polyline.
struct Part {
  Edges edges;
  std::vector<BulgeVertex> vertices;
  bool in_order = true;
};
using FoundPart = std::optional<Part>;

Edges lines(const std::vector<Point>& points) {
  Edges edges;
  for (std::size_t i = 1; i < points.size(); ++i) {
    if (points[i - 1] != points[i])
      edges.emplace_back(HatchLine{flattened(points[i - 1]), flattened(points[i])});
  }
  return edges;
}

bool is_round(const Conic& conic) {
  const double a = norm(conic.cosine), b = norm(conic.sine);
  return std::abs(a - b) <= 1e-12 * a;
}

/// Sees bodies in the plane of the hatch.
class BoundaryPlane {
 public:
  explicit BoundaryPlane(const Hatch& hatch)
      : to_plane_(translation({0, 0, -hatch.elevation_point.z}) * world_to_ocs(hatch.normal)) {}

  FoundPart operator()(const Line& line) const { return straight({line.start, line.end}); }
  FoundPart operator()(const Circle& circle) const {
    return round(circular(circle.center, circle.radius, circle.normal), true);
  }
  FoundPart operator()(const Arc& arc) const {
    return round(circular(arc.center, arc.radius, arc.normal, arc.start_angle, total_angle(arc)),
                 true);
  }
  FoundPart operator()(const Ellipse& ellipse) const {
    const double sweep = is_closed(ellipse)
                             ? full_turn
                             : sweep_between(ellipse.start_parameter, ellipse.end_parameter);
    return round(
        {ellipse.center, ellipse.major_axis, minor_axis(ellipse), ellipse.start_parameter, sweep},
        false);
  }
  FoundPart operator()(const LwPolyline& polyline) const {
    return bulged(polyline.vertices, polyline.closed(), polyline.elevation, polyline.normal);
  }
  FoundPart operator()(const Polyline& polyline) const {
    if (polyline.is_2d()) {
      return bulged(curve(polyline), polyline.closed(), polyline.elevation_point.z,
                    polyline.normal);
    }
    if ((polyline.flags & (Polyline::mesh_flag | Polyline::polyface_flag)) != 0) return {};
    return straight(outline(polyline));
  }
  FoundPart operator()(const Spline& spline) const {
    auto drawn = curve(spline);
    if (!drawn) return {};
    HatchSpline edge;
    edge.degree = drawn->degree;
    edge.rational = spline.weights.empty() ? 0 : 1;
    edge.periodic = (spline.flags & Spline::periodic_flag) != 0 ? 1 : 0;
    edge.knots = std::move(drawn->knots);
    for (ControlPoint& point : drawn->control_points) {
      point.position = to_plane_(point.position);
      if (!is_flat(point.position)) return {};
      point.position.z = 0;
    }
    edge.control_points = std::move(drawn->control_points);
    return Part{{edge}, {}, true};
  }
  FoundPart operator()(const Region& region) const {
    const auto found = edges(region);
    if (!found) return {};
    Part whole;
    whole.in_order = false;
    for (const RegionEdge& edge : *found) {
      const auto* line = std::get_if<RegionLine>(&edge);
      const FoundPart part = line ? straight({line->start, line->end})
                                  : round(std::get<Conic>(edge), is_round(std::get<Conic>(edge)));
      if (!part) return {};
      whole.edges.insert(whole.edges.end(), part->edges.begin(), part->edges.end());
    }
    return whole;
  }
  template <class Other>
  FoundPart operator()(const Other&) const {
    return {};
  }

 private:
  FoundPart straight(std::vector<Point> points) const {
    for (Point& point : points) {
      point = to_plane_(point);
      if (!is_flat(point)) return {};
    }
    return Part{lines(points), {}, true};
  }

  FoundPart round(const Conic& in_world, bool is_circle) const {
    const Conic conic{to_plane_(in_world.center), to_plane_.direction(in_world.cosine),
                      to_plane_.direction(in_world.sine), in_world.start, in_world.sweep};
    const double size = norm(conic.cosine);
    const bool is_level =
        std::abs(conic.cosine.z) <= flatness * size && std::abs(conic.sine.z) <= flatness * size;
    if (!(size > 0) || !is_level || !is_flat(conic.center)) return {};
    Conic level = conic;
    level.center.z = level.cosine.z = level.sine.z = 0;
    if (!is_circle) return Part{{ellipse_edge(level)}, {}, true};
    const bool left = cross(level.cosine, level.sine).z > 0;
    const Point start = level(level.start) - level.center;
    const double angle = std::atan2(start.y, start.x);
    const double from = level.sweep == full_turn ? 0 : wrapped(left ? angle : -angle);
    return Part{{HatchArc{level.center, size, from, from + level.sweep, left ? 1 : 0}}, {}, true};
  }

  FoundPart bulged(std::vector<BulgeVertex> vertices, bool closed, double elevation,
                   Point normal) const {
    const Matrix map = to_plane_ * ocs_to_world(normal) * translation({0, 0, elevation});
    if (vertices.size() < 2 || std::hypot(map.z.x, map.z.y) > flatness) return {};
    for (BulgeVertex& vertex : vertices) {
      const Point place = map({vertex.x, vertex.y, 0});
      if (!is_flat(place)) return {};
      vertex.x = place.x;
      vertex.y = place.y;
      vertex.start_width = vertex.end_width = 0;
      if (map.z.z < 0) vertex.bulge = -vertex.bulge;
    }
    if (closed) return Part{{}, std::move(vertices), true};
    Part part{edges_of(vertices), {}, true};
    part.edges.pop_back();  // from the last vertex to the first
    return part;
  }

  Matrix to_plane_;
};

Edges turned_round(const Edges& way) {
  Edges result;
  for (auto edge = way.rbegin(); edge != way.rend(); ++edge) result.push_back(reversed(*edge));
  return result;
}

double size_of(const std::vector<Edges>& ways) {
  HatchLoop all;
  for (const Edges& way : ways) all.edges.insert(all.edges.end(), way.begin(), way.end());
  const Box box = extents(all, Matrix{});
  return box.empty() ? 0 : norm(box.max - box.min);
}

/// Ways joined to one that ends where it begins; nothing where they do not.
std::optional<Edges> chained(std::vector<Edges> ways) {
  const double gap = flatness * size_of(ways);
  const auto meet = [&](Point a, Point b) { return norm(a - b) <= gap; };
  Edges chain = std::move(ways.back());
  ways.pop_back();
  while (!ways.empty()) {
    const Point at = end_point(chain.back());
    const auto next = std::ranges::find_if(ways, [&](const Edges& way) {
      return meet(at, start_point(way.front())) || meet(at, end_point(way.back()));
    });
    if (next == ways.end()) return std::nullopt;
    const bool forward = meet(at, start_point(next->front()));
    const Edges way = forward ? std::move(*next) : turned_round(*next);
    chain.insert(chain.end(), way.begin(), way.end());
    ways.erase(next);
  }
  if (!meet(end_point(chain.back()), start_point(chain.front()))) return std::nullopt;
  return chain;
}

}  // namespace

std::optional<HatchLoop> boundary_loop(std::span<const Body> bodies, const Hatch& hatch) {
  HatchLoop loop;
  std::vector<Edges> ways;
  for (const Body& body : bodies) {
    auto part = std::visit(BoundaryPlane(hatch), body);
    if (!part) return std::nullopt;
    if (part->vertices.empty()) {
      if (part->edges.empty()) return std::nullopt;
      if (part->in_order) {
        ways.push_back(std::move(part->edges));
      } else {
        for (HatchEdge& edge : part->edges) ways.push_back({std::move(edge)});
      }
      continue;
    }
    if (bodies.size() != 1) return std::nullopt;
    loop.flags = HatchLoop::polyline_flag;
    loop.vertices = std::move(part->vertices);
    loop.has_bulges = std::ranges::any_of(loop.vertices, is_arc) ? 1 : 0;
  }
  if (!ways.empty()) {
    auto chain = chained(std::move(ways));
    if (!chain) return std::nullopt;
    loop.edges = std::move(*chain);
  }
  const double area = std::abs(signed_area(loop));
  if (!(area > 0) || !std::isfinite(area)) return std::nullopt;
  return loop;
}

}  // namespace velmar::drawing
