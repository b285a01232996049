#pragma once

#include <vector>

#include "drawing/geometry/angle.h"
#include "drawing/geometry/box.h"
#include "drawing/geometry/point.h"

namespace velmar::drawing {

/// A part of a circle or an ellipse in space: center + cos t * cosine + sin t * sine, for t from
/// `start` on to start + sweep.
struct Conic {
  Point center, cosine, sine;
  double start = 0, sweep = 0;  // radians; sweep at least 0

  Point operator()(double t) const;
};

/// A part of the circle whose centre is given in the OCS of the normal.
Conic circular(Point center, double radius, Point normal, double start = 0,
               double sweep = full_turn);

/// The exact box.
Box extents(const Conic& conic);
/// Chords of at most 0.05 radians, both ends included.
std::vector<Point> outline(const Conic& conic);
/// How many chords of at most `step` radians it takes for a sweep; at least 1 and a bounded number
/// whatever the arguments are.
int chord_count(double sweep, double step);
/// Two conjugate half diameters as half axes: both turned by the parameter that makes them square
/// to each other, the longer one first. Returns that parameter.
double make_square(Point& cosine, Point& sine);
/// Between a circular arc and its chord, with the sign of the sweep.
double segment_area(double radius, double sweep);

}  // namespace velmar::drawing
