#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "drawing/entities/field.h"
#include "drawing/geometry/box.h"
#include "drawing/geometry/matrix.h"
#include "drawing/geometry/nurbs.h"

namespace velmar::drawing {

/// SPLINE, in world coordinates: its control points and knots; fit points are what it was drawn
/// through.
struct Spline {
  static constexpr std::int32_t closed_flag = 1, periodic_flag = 2, rational_flag = 4,
                                planar_flag = 8;

  Point normal = z_axis;  // of a planar one
  std::int32_t flags = planar_flag;
  std::int32_t degree = 3;
  Point start_tangent, end_tangent;
  std::vector<double> knots, weights;  // no weights: all are 1
  std::vector<Point> control_points, fit_points;

  bool closed() const { return (flags & closed_flag) != 0; }
};

template <class Fields>
void fields(Fields& field, Spline& spline) {
  field.subclass("AcDbSpline");
  field("SplineNormal", 210, spline.normal, unless{z_axis});
  field("SplineFlags", 70, spline.flags);
  field("Degree", 71, spline.degree);
  field.count(72, spline.knots);
  field.count(73, spline.control_points);
  field.count(74, spline.fit_points);
  field("StartTangent", 12, spline.start_tangent, unless{Point{}});
  field("EndTangent", 13, spline.end_tangent, unless{Point{}});
  field.repeated(40, spline.knots);
  field.repeated(41, spline.weights);
  field.repeated(10, spline.control_points);
  field.repeated(11, spline.fit_points);
}

/// Nothing where the control points, knots and weights make no curve: of a spline that the file
/// gives by its fit points alone.
std::optional<Nurbs> curve(const Spline& spline);
/// 0 where there is no curve.
double length(const Spline& spline);
/// Of a closed planar one; an open one is closed by a straight line.
double area(const Spline& spline);
/// Empty where there is no curve.
Box extents(const Spline& spline);
void transform(Spline& spline, const Matrix& matrix);
std::vector<Point> outline(const Spline& spline);

}  // namespace velmar::drawing
