#pragma once

#include <cstdint>
#include <vector>

#include "drawing/geometry/box.h"
#include "drawing/geometry/matrix.h"
#include "drawing/geometry/point.h"

namespace velmar::drawing {

struct ControlPoint {
  Point position;
  double weight = 1;
  friend bool operator==(const ControlPoint&, const ControlPoint&) = default;
};

/// A spline curve by its control points, rational where weights differ. (L. Piegl and W. Tiller,
/// The NURBS Book, 1997.)
struct Nurbs {
  std::int32_t degree = 3;
  std::vector<double> knots;
  std::vector<ControlPoint> control_points;
};

/// Whether it is a curve: as many knots as degree and control points demand, none below the one
/// before it, weights above 0, numbers finite, a degree of at most 25. The functions below want
/// such a one.
bool is_sound(const Nurbs& curve);
double first_parameter(const Nurbs& curve);
double last_parameter(const Nurbs& curve);
/// Where the curve is, and its first derivative there.
struct NurbsPoint {
  Point position, derivative;
};
NurbsPoint evaluate(const Nurbs& curve, double parameter);
/// The places between which the curve is one polynomial (or quotient): each once, both ends
/// included.
std::vector<double> span_ends(const Nurbs& curve);

double length(const Nurbs& curve);
/// Of the triangles from `base` to the curve, the sum of their doubled vectors: for a closed plane
/// curve twice its area along the normal.
Point swept_area(const Nurbs& curve, Point base);
Box extents(const Nurbs& curve);
std::vector<Point> flatten(const Nurbs& curve);
Nurbs reversed(const Nurbs& curve);

}  // namespace velmar::drawing
