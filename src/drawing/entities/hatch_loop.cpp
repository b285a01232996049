#include "drawing/entities/hatch_loop.h"

#include <algorithm>
#include <cmath>

#include "drawing/geometry/angle.h"

namespace velmar::drawing {
namespace {

template <class... Cases>
struct Each : Cases... {
  using Cases::operator()...;
};
template <class... Cases>
Each(Cases...) -> Each<Cases...>;

Point turned_left(Point v) { return {-v.y, v.x, 0}; }

double parameter_of(const HatchEllipse& ellipse, double angle) {
  const double t = std::atan2(std::sin(angle), ellipse.ratio * std::cos(angle));
  return t + full_turn * std::round((angle - t) / full_turn);
}

double angle_of(const HatchEllipse& ellipse, double parameter) {
  const double angle = std::atan2(ellipse.ratio * std::sin(parameter), std::cos(parameter));
  return angle + full_turn * std::round((parameter - angle) / full_turn);
}

double direction(std::int32_t counter_clockwise) { return counter_clockwise != 0 ? 1 : -1; }

/// Files also write 350 to 10 degrees instead of 350 to 370.
double sweep(double start, double end) {
  return end > start ? std::min(end - start, full_turn) : sweep_between(start, end);
}

Conic conic(const HatchArc& arc) {
  return {arc.center,
          {arc.radius, 0, 0},
          {0, arc.radius * direction(arc.counter_clockwise), 0},
          arc.start,
          sweep(arc.start, arc.end)};
}

Conic conic(const HatchEllipse& ellipse) {
  const double start = parameter_of(ellipse, ellipse.start);
  const double end = parameter_of(ellipse, ellipse.start + sweep(ellipse.start, ellipse.end));
  const Point sine =
      turned_left(ellipse.major_axis) * (ellipse.ratio * direction(ellipse.counter_clockwise));
  return {ellipse.center, ellipse.major_axis, sine, start, end - start};
}

Conic mapped(const Conic& round, const Matrix& map) {
  return {map(round.center), map.direction(round.cosine), map.direction(round.sine), round.start,
          round.sweep};
}

Nurbs curve(const HatchSpline& spline) {
  return {spline.degree, spline.knots, spline.control_points};
}

/// A spline that is no curve counts as the way along its control points, or its fit points.
std::vector<Point> flatten(const HatchSpline& spline) {
  if (const Nurbs nurbs = curve(spline); is_sound(nurbs)) return flatten(nurbs);
  if (spline.control_points.empty()) return spline.fit_points;
  std::vector<Point> points;
  for (const ControlPoint& point : spline.control_points) points.push_back(point.position);
  return points;
}

std::vector<Point> flatten(const HatchEdge& edge) {
  return std::visit(Each{[](const HatchLine& line) {
                           return std::vector<Point>{line.start, line.end};
                         },
                         [](const HatchSpline& spline) { return flatten(spline); },
                         [](const auto& round) { return outline(conic(round)); }},
                    edge);
}

Point flat(Point p) { return {p.x, p.y, 0}; }

/// The edges in the order and the direction of the way: files have edges the wrong way round.
std::vector<HatchEdge> in_one_direction(const std::vector<HatchEdge>& edges) {
  std::vector<HatchEdge> result = edges;
  const auto far = [](Point a, Point b) { return norm(a - b); };
  if (result.size() > 1) {
    const Point next = start_point(result[1]), behind = end_point(result[1]);
    const Point start = start_point(result[0]), end = end_point(result[0]);
    if (std::min(far(start, next), far(start, behind)) < std::min(far(end, next), far(end, behind)))
      result[0] = reversed(result[0]);
  }
  for (std::size_t i = 1; i < result.size(); ++i) {
    const Point at = end_point(result[i - 1]);
    if (far(at, end_point(result[i])) < far(at, start_point(result[i])))
      result[i] = reversed(result[i]);
  }
  return result;
}

/// Twice the area between the edge and the two straight lines from `base` to its ends.
double swept_area(const HatchEdge& edge, Point base) {
  const auto triangle = [&](Point from, Point to) { return cross(from - base, to - base).z; };
  const auto round = [&](const auto& part) {
    const Conic way = conic(part);
    const double segment = cross(way.cosine, way.sine).z * (way.sweep - std::sin(way.sweep));
    return triangle(way(way.start), way(way.start + way.sweep)) + segment;
  };
  const auto spline = [&](const HatchSpline& part) {
    if (const Nurbs nurbs = curve(part); is_sound(nurbs)) return swept_area(nurbs, base).z;
    const std::vector<Point> points = flatten(part);
    double area = 0;
    for (std::size_t i = 1; i < points.size(); ++i) area += triangle(points[i - 1], points[i]);
    return area;
  };
  return std::visit(
      Each{[&](const HatchLine& line) { return triangle(line.start, line.end); }, spline, round},
      edge);
}

Box extents_of(const HatchEdge& edge, const Matrix& to_world) {
  const auto spline = [&](const HatchSpline& part) {
    Nurbs nurbs = curve(part);
    const bool sound = is_sound(nurbs);
    for (ControlPoint& point : nurbs.control_points) point.position = to_world(point.position);
    if (sound) return extents(nurbs);
    Box box;
    for (const Point& point : flatten(part)) box.add(to_world(point));
    return box;
  };
  const auto line = [&](const HatchLine& part) {
    Box box;
    box.add(to_world(part.start));
    box.add(to_world(part.end));
    return box;
  };
  return std::visit(
      Each{line, spline,
           [&](const auto& round) { return extents(mapped(conic(round), to_world)); }},
      edge);
}

void transform_edge(HatchEdge& edge, const PlaneMap& plane) {
  const Matrix& map = plane.map;
  const auto place = [&](Point p) { return flat(map(p)); };
  if (auto* line = std::get_if<HatchLine>(&edge)) {
    line->start = place(line->start);
    line->end = place(line->end);
  } else if (auto* spline = std::get_if<HatchSpline>(&edge)) {
    for (ControlPoint& point : spline->control_points) point.position = place(point.position);
    for (Point& point : spline->fit_points) point = place(point);
    spline->start_tangent = flat(map.direction(spline->start_tangent));
    spline->end_tangent = flat(map.direction(spline->end_tangent));
  } else if (!plane.similar) {
    const auto* arc = std::get_if<HatchArc>(&edge);
    Conic round = mapped(arc ? conic(*arc) : conic(std::get<HatchEllipse>(edge)), map);
    round.center = flat(round.center);
    edge = ellipse_edge(round);
  } else if (auto* arc = std::get_if<HatchArc>(&edge)) {
    arc->center = place(arc->center);
    arc->radius *= plane.stretch;
    if (plane.mirrored) arc->counter_clockwise = arc->counter_clockwise == 0 ? 1 : 0;
    const double turn = plane.turn * direction(arc->counter_clockwise);
    if (turn == 0) return;
    const double way = arc->end - arc->start;
    arc->start = wrapped(arc->start + turn);
    arc->end = arc->start + way;
  } else if (auto* ellipse = std::get_if<HatchEllipse>(&edge)) {
    ellipse->center = place(ellipse->center);
    ellipse->major_axis = flat(map.direction(ellipse->major_axis));
    if (plane.mirrored) ellipse->counter_clockwise = ellipse->counter_clockwise == 0 ? 1 : 0;
  }
}

void transform_vertices(HatchLoop& loop, const PlaneMap& plane) {
  for (BulgeVertex& vertex : loop.vertices) {
    const Point place = plane.map({vertex.x, vertex.y, 0});
    vertex.x = place.x;
    vertex.y = place.y;
    if (plane.mirrored) vertex.bulge = -vertex.bulge;
  }
}

}  // namespace

HatchEllipse ellipse_edge(Conic round) {
  const double shift = make_square(round.cosine, round.sine);
  HatchEllipse ellipse;
  ellipse.center = round.center;
  ellipse.major_axis = round.cosine;
  const double size = norm(round.cosine);
  ellipse.ratio = size > 0 ? norm(round.sine) / size : 1;
  ellipse.counter_clockwise = cross(round.cosine, round.sine).z >= 0 ? 1 : 0;
  const double start = wrapped(round.start - shift);
  ellipse.start = angle_of(ellipse, start);
  ellipse.end = angle_of(ellipse, start + round.sweep);
  return ellipse;
}

Point start_point(const HatchEdge& edge) {
  if (const auto* line = std::get_if<HatchLine>(&edge)) return line->start;
  const std::vector<Point> points = flatten(edge);
  return points.empty() ? Point{} : points.front();
}

Point end_point(const HatchEdge& edge) {
  if (const auto* line = std::get_if<HatchLine>(&edge)) return line->end;
  const std::vector<Point> points = flatten(edge);
  return points.empty() ? Point{} : points.back();
}

HatchEdge reversed(const HatchEdge& edge) {
  const auto round = [](auto part) -> HatchEdge {
    const double way = part.end - part.start;
    part.start = wrapped(-part.end);
    part.end = part.start + way;
    part.counter_clockwise = part.counter_clockwise == 0 ? 1 : 0;
    return part;
  };
  const auto spline = [](HatchSpline part) -> HatchEdge {
    Nurbs turned = reversed(curve(part));
    part.knots = std::move(turned.knots);
    part.control_points = std::move(turned.control_points);
    std::ranges::reverse(part.fit_points);
    const Point start = part.start_tangent;
    part.start_tangent = -part.end_tangent;
    part.end_tangent = -start;
    return part;
  };
  const auto line = [](const HatchLine& part) -> HatchEdge {
    return HatchLine{part.end, part.start};
  };
  return std::visit(Each{line, spline, round}, edge);
}

std::vector<HatchEdge> edges_of(const std::vector<BulgeVertex>& vertices) {
  std::vector<HatchEdge> edges;
  for (std::size_t i = 0; i < vertices.size(); ++i) {
    const BulgeVertex &from = vertices[i], &to = vertices[(i + 1) % vertices.size()];
    if (!is_arc(from)) {
      edges.emplace_back(HatchLine{{from.x, from.y, 0}, {to.x, to.y, 0}});
      continue;
    }
    const BulgeArc turn = arc_of(from, to);
    const bool left = turn.sweep >= 0;
    const double start = wrapped(left ? turn.start_angle : -turn.start_angle);
    edges.emplace_back(
        HatchArc{turn.center, turn.radius, start, start + std::abs(turn.sweep), left ? 1 : 0});
  }
  return edges;
}

std::vector<Point> flatten(const HatchLoop& loop) {
  if (loop.is_polyline()) return flatten(loop.vertices, true);
  std::vector<Point> points;
  for (const HatchEdge& edge : in_one_direction(loop.edges)) {
    for (const Point& point : flatten(edge)) {
      if (points.empty() || points.back() != point) points.push_back(point);
    }
  }
  if (!points.empty() && points.front() != points.back()) points.push_back(points.front());
  return points;
}

double signed_area(const HatchLoop& loop) {
  if (loop.is_polyline()) return signed_area(loop.vertices, true);
  if (loop.edges.empty()) return 0;
  const std::vector<HatchEdge> edges = in_one_direction(loop.edges);
  // From a point of the loop, lest a small area drown in its distance from the origin.
  const Point base = start_point(edges.front());
  double twice = 0;
  for (std::size_t i = 0; i < edges.size(); ++i) {
    twice += swept_area(edges[i], base);
    // Across the small gap to the next edge.
    const Point at = end_point(edges[i]), next = start_point(edges[(i + 1) % edges.size()]);
    twice += cross(at - base, next - base).z;
  }
  return twice / 2;
}

Box extents(const HatchLoop& loop, const Matrix& to_world) {
  if (loop.is_polyline()) return extents(loop.vertices, true, to_world);
  Box box;
  for (const HatchEdge& edge : loop.edges) box.add(extents_of(edge, to_world));
  return box;
}

void transform(HatchLoop& loop, const PlaneMap& plane) {
  if (loop.is_polyline() && (plane.similar || std::ranges::none_of(loop.vertices, is_arc))) {
    return transform_vertices(loop, plane);
  }
  if (loop.is_polyline()) {
    loop.edges = edges_of(loop.vertices);
    loop.vertices.clear();
    loop.flags &= ~HatchLoop::polyline_flag;
  }
  for (HatchEdge& edge : loop.edges) transform_edge(edge, plane);
}

}  // namespace velmar::drawing
