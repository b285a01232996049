#include "drawing/geometry/parallel.h"

#include <algorithm>
#include <cmath>

#include "drawing/geometry/angle.h"

namespace velmar::drawing {
namespace {

constexpr double nearly_zero = 1e-9;

double cross_z(Point a, Point b) { return a.x * b.y - a.y * b.x; }

/// The parallel of one segment.
struct Piece {
  BulgeVertex from;         // where the segment begins
  Point start, end;         // of the whole parallel
  Point first, last;        // of what is left between its neighbours
  Point way;                // of a straight one: a unit vector
  double size = 0;          // of the segment: its length, or the angle of an arc with its sign
  Point center;             // of a round one
  double radius = 0;        // 0: straight
  bool beside_gap = false;  // the one before it was left out

  bool is_round() const { return radius != 0; }
};

/// An angle from -pi to pi.
double nearest_turn(double angle) { return std::remainder(angle, full_turn); }

double direction(const Piece& arc, Point p) {
  return std::atan2(p.y - arc.center.y, p.x - arc.center.x);
}

/// What is left of the segment's size; below 0 where its ends have changed places.
double size_left(const Piece& piece) {
  if (!piece.is_round()) return dot(piece.last - piece.first, piece.way);
  const double at_first =
      nearest_turn(direction(piece, piece.first) - direction(piece, piece.start));
  const double at_last = nearest_turn(direction(piece, piece.last) - direction(piece, piece.end));
  return piece.size + at_last - at_first;
}

std::optional<Piece> straight_piece(const BulgeVertex& from, const BulgeVertex& to,
                                    double distance) {
  const Point start{from.x, from.y, 0}, way = Point{to.x, to.y, 0} - start;
  Piece piece;
  piece.from = from;
  piece.size = norm(way);
  piece.way = way * (1 / piece.size);
  const Point step = Point{piece.way.y, -piece.way.x, 0} * distance;
  piece.start = start + step;
  piece.end = start + way + step;
  return piece;
}

/// Nothing for an arc that is too small.
std::optional<Piece> round_piece(const BulgeVertex& from, const BulgeVertex& to, double distance) {
  const BulgeArc arc = arc_of(from, to);
  Piece piece;
  piece.from = from;
  piece.size = arc.sweep;
  piece.center = arc.center;
  piece.radius = arc.radius + std::copysign(distance, distance * arc.sweep);
  if (!(piece.radius > nearly_zero * arc.radius)) return std::nullopt;
  const double scale = piece.radius / arc.radius;
  piece.start = arc.center + (Point{from.x, from.y, 0} - arc.center) * scale;
  piece.end = arc.center + (Point{to.x, to.y, 0} - arc.center) * scale;
  return piece;
}

std::vector<Piece> pieces_of(std::span<const BulgeVertex> vertices, bool closed, double distance) {
  std::vector<Piece> pieces;
  bool gap = false;
  const std::size_t open_ends = closed ? 0 : 1;
  for (std::size_t i = 0; i + open_ends < vertices.size(); ++i) {
    const BulgeVertex &from = vertices[i], &to = vertices[(i + 1) % vertices.size()];
    if (!(std::hypot(to.x - from.x, to.y - from.y) > 0)) continue;
    const bool round = is_arc(from) && std::abs(from.bulge) >= flattest_bulge;
    auto piece = round ? round_piece(from, to, distance) : straight_piece(from, to, distance);
    if (piece) {
      piece->beside_gap = gap;
      pieces.push_back(*piece);
    }
    gap = !piece;
  }
  if (closed && gap && !pieces.empty()) pieces.front().beside_gap = true;
  return pieces;
}

using Meetings = std::vector<Point>;

Meetings straight_meetings(const Piece& a, const Piece& b) {
  const double turn = cross_z(a.way, b.way);
  if (std::abs(turn) < nearly_zero) return {};
  return {a.start + a.way * (cross_z(b.start - a.start, b.way) / turn)};
}

/// Of a line, by a point and a unit vector, and a circle.
Meetings line_meetings(Point on, Point way, Point center, double radius) {
  const Point foot = on + way * dot(center - on, way);
  const double away = norm(center - foot);
  const double half_squared = (radius - away) * (radius + away);
  if (half_squared < -nearly_zero * radius * radius) return {};
  const Point half = way * std::sqrt(std::max(half_squared, 0.0));
  return {foot - half, foot + half};
}

Meetings circle_meetings(const Piece& a, const Piece& b) {
  const Point between = b.center - a.center;
  const double apart = norm(between);
  if (!(apart > nearly_zero * (a.radius + b.radius))) return {};
  // Both circles cut the line that is square to the line of their centres at this distance.
  const double along = (apart + (a.radius - b.radius) * (a.radius + b.radius) / apart) / 2;
  const Point way = between * (1 / apart);
  return line_meetings(a.center + way * along, {-way.y, way.x, 0}, a.center, a.radius);
}

Meetings meetings(const Piece& a, const Piece& b) {
  if (a.is_round() && b.is_round()) return circle_meetings(a, b);
  if (a.is_round()) return line_meetings(b.start, b.way, a.center, a.radius);
  if (b.is_round()) return line_meetings(a.start, a.way, b.center, b.radius);
  return straight_meetings(a, b);
}

/// False where nothing joins them.
bool join(Piece& a, Piece& b, double distance) {
  a.last = a.end;
  b.first = b.start;
  if (norm(a.end - b.start) <= nearly_zero * std::abs(distance)) return true;
  const Point middle = (a.end + b.start) * 0.5;
  const Meetings found = meetings(a, b);
  const auto away = [&](Point p) { return norm(p - middle); };
  const auto nearest = std::ranges::min_element(found, {}, away);
  if (nearest == found.end()) return !b.beside_gap;
  a.last = b.first = *nearest;
  return true;
}

bool join_all(std::vector<Piece>& pieces, bool closed, double distance) {
  pieces.front().first = pieces.front().start;
  pieces.back().last = pieces.back().end;
  for (std::size_t i = 1; i < pieces.size(); ++i) {
    if (!join(pieces[i - 1], pieces[i], distance)) return false;
  }
  return !closed || join(pieces.back(), pieces.front(), distance);
}

/// Leaves out the piece for which there is least room, until there is room for all.
bool fit(std::vector<Piece>& pieces, bool closed, double distance) {
  const auto room = [](const Piece& piece) { return size_left(piece) / piece.size; };
  while (pieces.size() > (closed ? 1U : 0U)) {
    if (!join_all(pieces, closed, distance)) return false;
    const auto least = std::ranges::min_element(pieces, {}, room);
    if (room(*least) > nearly_zero) return true;
    const auto next = pieces.erase(least);
    if (next != pieces.end()) {
      next->beside_gap = true;
    } else if (closed) {
      pieces.front().beside_gap = true;
    }
  }
  return false;
}

std::vector<BulgeVertex> vertices_of(const std::vector<Piece>& pieces, bool closed) {
  std::vector<BulgeVertex> vertices;
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    const Piece& piece = pieces[i];
    BulgeVertex vertex = piece.from;
    vertex.x = piece.first.x;
    vertex.y = piece.first.y;
    vertex.bulge = piece.is_round() ? std::tan(size_left(piece) / 4) : 0;
    vertices.push_back(vertex);
    const bool is_end = !closed && i + 1 == pieces.size();
    const Point next = pieces[(i + 1) % pieces.size()].first;
    if (!is_end && norm(next - piece.last) <= nearly_zero * (1 + norm(next))) continue;
    const double width = piece.from.end_width;
    vertices.push_back({piece.last.x, piece.last.y, width, width});
  }
  return vertices;
}

}  // namespace

std::optional<std::vector<BulgeVertex>> parallel(std::span<const BulgeVertex> vertices, bool closed,
                                                 double distance) {
  std::vector<Piece> pieces = pieces_of(vertices, closed, distance);
  if (!fit(pieces, closed, distance)) return std::nullopt;
  const bool too_round = std::ranges::any_of(pieces, [](const Piece& piece) {
    return piece.is_round() && std::abs(size_left(piece)) >= full_turn;
  });
  if (too_round) return std::nullopt;
  std::vector<BulgeVertex> beside = vertices_of(pieces, closed);
  const bool finite = std::ranges::all_of(beside, [](const BulgeVertex& vertex) {
    return std::isfinite(vertex.x) && std::isfinite(vertex.y) && std::isfinite(vertex.bulge);
  });
  if (!finite) return std::nullopt;
  // A closed way that has no room inside comes out with its other side outward.
  const bool turned = closed && signed_area(vertices, true) * signed_area(beside, true) <= 0;
  if (turned) return std::nullopt;
  return beside;
}

}  // namespace velmar::drawing
