#include "embedded/curve_pieces.h"

#include "drawing/geometry/angle.h"
#include "drawing/geometry/bulge.h"
#include "drawing/geometry/ocs.h"

namespace velmar::embedded {
namespace {

using drawing::Arc;
using drawing::BulgeVertex;
using drawing::Circle;
using drawing::Ellipse;
using drawing::full_turn;
using drawing::Line;
using drawing::LwPolyline;
using drawing::Matrix;
using drawing::Point;
using drawing::Polyline;
using Pieces = std::vector<CurvePiece>;

RoundPiece round(const Matrix& plane, Point center, double radius, double start, double sweep) {
  return {.center = plane(center),
          .u = plane.x * radius,
          .v = plane.y * radius,
          .start = start,
          .sweep = sweep};
}

void extend_ends(Pieces& pieces) {
  if (pieces.empty()) return;
  if (auto* first = std::get_if<StraightPiece>(&pieces.front())) first->open_start = true;
  if (auto* last = std::get_if<StraightPiece>(&pieces.back())) last->open_end = true;
}

Pieces bulged(std::span<const BulgeVertex> vertices, bool closed, double elevation, Point normal) {
  const Matrix plane = drawing::ocs_to_world(normal);
  Pieces pieces;
  const std::size_t segments = closed             ? vertices.size()
                               : vertices.empty() ? 0
                                                  : vertices.size() - 1;
  for (std::size_t i = 0; i < segments && vertices.size() > 1; ++i) {
    const BulgeVertex& from = vertices[i];
    const BulgeVertex& to = vertices[(i + 1) % vertices.size()];
    if (from.x == to.x && from.y == to.y) continue;
    if (from.bulge == 0) {
      pieces.emplace_back(
          StraightPiece{plane({from.x, from.y, elevation}), plane({to.x, to.y, elevation})});
    } else {
      const drawing::BulgeArc arc = drawing::arc_of(from, to);
      const Point center{arc.center.x, arc.center.y, elevation};
      pieces.emplace_back(round(plane, center, arc.radius, arc.start_angle, arc.sweep));
    }
  }
  return pieces;
}

std::optional<Pieces> pieces_of(const Line& line, bool extended) {
  return Pieces{StraightPiece{line.start, line.end, extended, extended}};
}

std::optional<Pieces> pieces_of(const Arc& arc, bool extended) {
  const double sweep = extended ? full_turn : total_angle(arc);
  return Pieces{
      round(drawing::ocs_to_world(arc.normal), arc.center, arc.radius, arc.start_angle, sweep)};
}

std::optional<Pieces> pieces_of(const Circle& circle, bool) {
  return Pieces{
      round(drawing::ocs_to_world(circle.normal), circle.center, circle.radius, 0, full_turn)};
}

std::optional<Pieces> pieces_of(const Ellipse& ellipse, bool extended) {
  const bool whole = extended || is_closed(ellipse);
  const double sweep =
      whole ? full_turn : drawing::sweep_between(ellipse.start_parameter, ellipse.end_parameter);
  return Pieces{RoundPiece{ellipse.center, ellipse.major_axis, minor_axis(ellipse),
                           ellipse.start_parameter, sweep}};
}

std::optional<Pieces> pieces_of(const LwPolyline& polyline, bool extended) {
  Pieces pieces = bulged(polyline.vertices, polyline.closed(), polyline.elevation, polyline.normal);
  if (extended && !polyline.closed()) extend_ends(pieces);
  return pieces;
}

std::optional<Pieces> pieces_of(const Polyline& polyline, bool extended) {
  if ((polyline.flags & (Polyline::mesh_flag | Polyline::polyface_flag)) != 0) return std::nullopt;
  Pieces pieces;
  if (polyline.is_2d()) {
    pieces =
        bulged(curve(polyline), polyline.closed(), polyline.elevation_point.z, polyline.normal);
  } else {
    const std::vector<Point> way = outline(polyline);
    for (std::size_t i = 1; i < way.size(); ++i) {
      pieces.emplace_back(StraightPiece{way[i - 1], way[i]});
    }
  }
  if (extended && !polyline.closed()) extend_ends(pieces);
  return pieces;
}

template <class Kind>
std::optional<Pieces> pieces_of(const Kind&, bool) {
  return std::nullopt;
}

}  // namespace

std::optional<Pieces> curve_pieces(const drawing::Body& body, bool extended) {
  return std::visit([&](const auto& kind) { return pieces_of(kind, extended); }, body);
}

}  // namespace velmar::embedded
