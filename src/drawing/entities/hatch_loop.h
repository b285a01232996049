#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "drawing/entities/field.h"
#include "drawing/geometry/box.h"
#include "drawing/geometry/bulge.h"
#include "drawing/geometry/conic.h"
#include "drawing/geometry/nurbs.h"
#include "drawing/geometry/plane_map.h"

/// The boundaries of a HATCH, in the plane of its object coordinate system: the z of all points is
/// 0. Numbers of edges, flags and angles are those of the file (DXF reference, "Boundary path
/// data").
namespace velmar::drawing {

struct HatchLine {
  Point start, end;
};

/// A part of a circle. The point at t is center + radius (cos t, sin t), for a clockwise one
/// center + radius (cos t, -sin t); it goes from t = start to t = end, radians.
struct HatchArc {
  Point center;
  double radius = 1;
  double start = 0, end = 0;
  std::int32_t counter_clockwise = 1;
};

/// A part of an ellipse. Start and end are angles from the major axis, radians, no parameters; as
/// for the arc they count the other way round where it is clockwise.
struct HatchEllipse {
  Point center, major_axis = x_axis;
  double ratio = 1;
  double start = 0, end = 0;
  std::int32_t counter_clockwise = 1;
};

struct HatchSpline {
  std::int32_t degree = 3, rational = 0, periodic = 0;
  std::vector<double> knots;
  std::vector<ControlPoint> control_points;
  bool lists_fit_points = false;  // older files have no place for them
  std::vector<Point> fit_points;
  Point start_tangent, end_tangent;
};

using HatchEdge = std::variant<HatchLine, HatchArc, HatchEllipse, HatchSpline>;

/// A polyline, always closed, or a chain of edges.
struct HatchLoop {
  static constexpr std::int32_t external_flag = 1, polyline_flag = 2;

  std::int32_t flags = 0;
  std::int32_t has_bulges = 0, closed = 1;
  std::vector<BulgeVertex> vertices;
  std::vector<HatchEdge> edges;
  std::vector<std::string> sources;  // handles of the entities that an associative hatch follows

  bool is_polyline() const { return (flags & polyline_flag) != 0; }
};

template <class Row>
void tags(Row& row, HatchLine& line) {
  row.plane(10, line.start);
  row.plane(11, line.end);
}

template <class Row>
void tags(Row& row, HatchArc& arc) {
  row.plane(10, arc.center);
  row(40, arc.radius);
  row(50, degrees(arc.start));
  row(51, degrees(arc.end));
  row(73, arc.counter_clockwise);
}

template <class Row>
void tags(Row& row, HatchEllipse& ellipse) {
  row.plane(10, ellipse.center);
  row.plane(11, ellipse.major_axis);
  row(40, ellipse.ratio);
  row(50, degrees(ellipse.start));
  row(51, degrees(ellipse.end));
  row(73, ellipse.counter_clockwise);
}

template <class Row>
void tags(Row& row, HatchSpline& spline) {
  row(94, spline.degree);
  row(73, spline.rational);
  row(74, spline.periodic);
  row.count(95, spline.knots);
  row.count(96, spline.control_points);
  for (double& knot : spline.knots) row(40, knot);
  for (ControlPoint& point : spline.control_points) {
    row.plane(10, point.position);
    row(42, point.weight, unless{1.0});
  }
  // Group 97 is also the number of source entities behind the last edge of a loop.
  if (!row.present(spline.lists_fit_points, 97, {11, 12, 72, 97})) return;
  row.count(97, spline.fit_points);
  for (Point& point : spline.fit_points) row.plane(11, point);
  row.plane(12, spline.start_tangent, unless{Point{}});
  row.plane(13, spline.end_tangent, unless{Point{}});
}

template <class Row>
void tags(Row& row, HatchLoop& loop) {
  row(92, loop.flags);
  if (loop.is_polyline()) {
    row(72, loop.has_bulges);
    row(73, loop.closed);
    row.count(93, loop.vertices);
    for (BulgeVertex& vertex : loop.vertices) {
      row(10, vertex.x);
      row(20, vertex.y);
      row(42, vertex.bulge, unless{0.0}, loop.has_bulges != 0);
    }
  } else {
    row.count(93, loop.edges);
    for (HatchEdge& edge : loop.edges) row.alternative(72, edge);
  }
  row.count(97, loop.sources, may_be_missing);
  for (std::string& source : loop.sources) row(330, source);
}

/// A part of an ellipse by two conjugate half diameters in the plane.
HatchEllipse ellipse_edge(Conic round);
Point start_point(const HatchEdge& edge);
Point end_point(const HatchEdge& edge);
/// The same edge from its end to its start.
HatchEdge reversed(const HatchEdge& edge);

/// The segments of a closed polyline.
std::vector<HatchEdge> edges_of(const std::vector<BulgeVertex>& vertices);
/// The way round as points, arcs and splines by chords; the last point is the first.
std::vector<Point> flatten(const HatchLoop& loop);
/// Positive when counter-clockwise.
double signed_area(const HatchLoop& loop);
/// The exact box, as the loop lies in the world by `to_world`.
Box extents(const HatchLoop& loop, const Matrix& to_world);
/// A map that stretches unevenly makes arcs parts of ellipses, and a polyline that has some a chain
/// of edges.
void transform(HatchLoop& loop, const PlaneMap& plane);

}  // namespace velmar::drawing
