#include "embedded/intersections.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "drawing/geometry/angle.h"

namespace velmar::embedded {
namespace {

using drawing::full_turn;
using drawing::Point;
using Points = std::vector<Point>;

constexpr double parallel = 1e-10;  // sine of the angle below which directions count as one

/// Coordinates in which the whole curve of a round piece is the unit circle about the origin.
struct Local {
  double x, y;
  double radius() const { return std::hypot(x, y); }
  double angle() const { return std::atan2(y, x); }
};
Local local_direction(const RoundPiece& round, Point v) {
  return {dot(v, round.u) / dot(round.u, round.u), dot(v, round.v) / dot(round.v, round.v)};
}
Local local(const RoundPiece& round, Point p) { return local_direction(round, p - round.center); }

Point at(const RoundPiece& round, double t) {
  return round.center + round.u * std::cos(t) + round.v * std::sin(t);
}
Point unit_normal(const RoundPiece& round) {
  const Point normal = cross(round.u, round.v);
  return normal * (1 / norm(normal));
}
double small_radius(const RoundPiece& round) { return std::min(norm(round.u), norm(round.v)); }

bool covers(const RoundPiece& round, double angle, double tolerance) {
  const double slack = tolerance / small_radius(round);
  const double way = drawing::wrapped(round.sweep >= 0 ? angle - round.start : round.start - angle);
  return way <= std::abs(round.sweep) + slack || way >= full_turn - slack;
}

bool covers(const StraightPiece& line, double t, double tolerance) {
  const double slack = tolerance / norm(line.to - line.from);
  return (line.open_start || t >= -slack) && (line.open_end || t <= 1 + slack);
}

bool lies_on(const RoundPiece& round, Point p, double tolerance) {
  const Local place = local(round, p);
  return std::abs(place.radius() - 1) * small_radius(round) <= tolerance &&
         covers(round, place.angle(), tolerance);
}

Points meet(const StraightPiece& a, const StraightPiece& b, double tolerance) {
  const Point along_a = a.to - a.from, along_b = b.to - b.from;
  const Point normal = cross(along_a, along_b);
  if (norm(normal) <= parallel * norm(along_a) * norm(along_b)) return {};
  const double size = dot(normal, normal);
  const double t = dot(cross(b.from - a.from, along_b), normal) / size;
  const double s = dot(cross(b.from - a.from, along_a), normal) / size;
  const Point on_a = a.from + along_a * t, on_b = b.from + along_b * s;
  if (norm(on_a - on_b) > tolerance || !covers(a, t, tolerance) || !covers(b, s, tolerance)) {
    return {};
  }
  return {on_a};
}

/// Where a line in the plane of a round piece crosses or touches its whole curve.
std::vector<double> crossings_in_plane(const StraightPiece& line, const RoundPiece& round,
                                       double tolerance) {
  const Local start = local(round, line.from);
  const Local step = local_direction(round, line.to - line.from);
  const double size = step.x * step.x + step.y * step.y;
  const double nearest = -(start.x * step.x + start.y * step.y) / size;
  const double distance = std::abs(start.x * step.y - start.y * step.x) / std::sqrt(size);
  const double slack = tolerance / small_radius(round);
  if (distance > 1 + slack) return {};
  if (distance >= 1 - slack) return {nearest};
  const double half_chord = std::sqrt((1 - distance) * (1 + distance) / size);
  return {nearest - half_chord, nearest + half_chord};
}

Points meet(const StraightPiece& line, const RoundPiece& round, double tolerance) {
  const Point along = line.to - line.from, normal = unit_normal(round);
  const double rise = dot(along, normal), height = dot(round.center - line.from, normal);
  std::vector<double> places;
  if (std::abs(rise) > parallel * norm(along)) {
    places = {height / rise};
  } else if (std::abs(height) <= tolerance) {
    places = crossings_in_plane(line, round, tolerance);
  }
  Points points;
  for (const double t : places) {
    const Point p = line.from + along * t;
    if (covers(line, t, tolerance) && lies_on(round, p, tolerance)) points.push_back(p);
  }
  return points;
}

bool is_circle(const RoundPiece& round) {
  return std::abs(norm(round.u) - norm(round.v)) <= 1e-12 * norm(round.u);
}

Points meet_circles(const RoundPiece& a, const RoundPiece& b, double tolerance) {
  const Point between = b.center - a.center;
  const double distance = norm(between), radius_a = norm(a.u), radius_b = norm(b.u);
  if (distance <= tolerance || distance > radius_a + radius_b + tolerance ||
      distance < std::abs(radius_a - radius_b) - tolerance) {
    return {};
  }
  const double along =
      (distance * distance + (radius_a - radius_b) * (radius_a + radius_b)) / (2 * distance);
  const double square = (radius_a - along) * (radius_a + along);
  const Point direction = between * (1 / distance), side = cross(unit_normal(a), direction);
  const Point middle = a.center + direction * along;
  if (square <= 2 * radius_a * tolerance) return {middle};
  return {middle + side * std::sqrt(square), middle - side * std::sqrt(square)};
}

/// Where a function that repeats after a full turn is 0: crossings, and places where it touches.
template <class Function>
std::vector<double> zeros(Function f, double touching) {
  constexpr int samples = 720;
  constexpr double step = full_turn / samples;
  constexpr int halvings = 60;
  std::vector<double> found;
  for (int i = 0; i < samples; ++i) {
    double low = i * step, high = low + step;
    const double before = f(low - step), here = f(low), after = f(high);
    if ((here < 0) != (after < 0)) {
      for (int n = 0; n < halvings; ++n) {
        const double middle = (low + high) / 2;
        ((f(middle) < 0) == (here < 0) ? low : high) = middle;
      }
      found.push_back(low);
    } else if (std::abs(here) <= std::abs(before) && std::abs(here) <= std::abs(after)) {
      low -= step;
      for (int n = 0; n < halvings; ++n) {
        const double third = (high - low) / 3;
        const bool is_left = std::abs(f(low + third)) < std::abs(f(high - third));
        (is_left ? high : low) += is_left ? -third : third;
      }
      if (std::abs(f(low)) <= touching) found.push_back(low);
    }
  }
  return found;
}

Points meet_in_plane(const RoundPiece& a, const RoundPiece& b, double tolerance) {
  if (is_circle(a) && is_circle(b)) return meet_circles(a, b, tolerance);
  const double touching = 2 * tolerance / small_radius(a);
  const auto outside = [&](double t) {
    const double radius = local(a, at(b, t)).radius();
    return radius * radius - 1;
  };
  const bool is_same = std::ranges::all_of(std::array{0.1, 0.9, 2.3, 3.7, 5.1}, [&](double t) {
    return std::abs(outside(t)) <= touching;
  });
  if (is_same) return {};
  Points points;
  for (const double t : zeros(outside, touching)) points.push_back(at(b, t));
  return points;
}

/// The line that two planes share.
StraightPiece common_line(const RoundPiece& a, const RoundPiece& b) {
  const Point normal_a = unit_normal(a), normal_b = unit_normal(b);
  const Point along = cross(normal_a, normal_b);
  const Point from = (cross(normal_b, along) * dot(normal_a, a.center) +
                      cross(along, normal_a) * dot(normal_b, b.center)) *
                     (1 / dot(along, along));
  return {from, from + along, true, true};
}

Points meet(const RoundPiece& a, const RoundPiece& b, double tolerance) {
  const Point normal_a = unit_normal(a);
  Points candidates;
  if (norm(cross(normal_a, unit_normal(b))) > parallel) {
    candidates = meet(common_line(a, b), a, tolerance);
  } else if (std::abs(dot(b.center - a.center, normal_a)) <= tolerance) {
    candidates = meet_in_plane(a, b, tolerance);
  }
  std::erase_if(candidates, [&](Point p) {
    return !lies_on(a, p, 2 * tolerance) || !lies_on(b, p, 2 * tolerance);
  });
  return candidates;
}

Points meet(const RoundPiece& a, const StraightPiece& b, double tolerance) {
  return meet(b, a, tolerance);
}

bool is_degenerate(const CurvePiece& piece) {
  if (const auto* line = std::get_if<StraightPiece>(&piece)) return line->from == line->to;
  return !(small_radius(std::get<RoundPiece>(piece)) > 0);
}

double size(const CurvePiece& piece) {
  if (const auto* line = std::get_if<StraightPiece>(&piece)) {
    return std::max(norm(line->from), norm(line->to));
  }
  const auto& round = std::get<RoundPiece>(piece);
  return norm(round.center) + norm(round.u) + norm(round.v);
}

}  // namespace

Points intersections(std::span<const CurvePiece> first, std::span<const CurvePiece> second) {
  double largest = 0;
  for (const CurvePiece& piece : first) largest = std::max(largest, size(piece));
  for (const CurvePiece& piece : second) largest = std::max(largest, size(piece));
  const double tolerance = 1e-9 * largest;

  Points points;
  for (const CurvePiece& a : first) {
    for (const CurvePiece& b : second) {
      if (is_degenerate(a) || is_degenerate(b)) continue;
      const Points found = std::visit(
          [&](const auto& one, const auto& other) { return meet(one, other, tolerance); }, a, b);
      for (const Point p : found) {
        const auto is_near = [&](Point q) { return norm(p - q) <= 10 * tolerance; };
        if (std::ranges::none_of(points, is_near)) points.push_back(p);
      }
    }
  }
  return points;
}

}  // namespace velmar::embedded
