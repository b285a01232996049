#pragma once

#include <numbers>
#include <vector>

#include "drawing/entities/field.h"
#include "drawing/geometry/box.h"
#include "drawing/geometry/matrix.h"

namespace velmar::drawing {

/// ELLIPSE, whole or a part of it. Centre and major axis (a vector from the centre) in world
/// coordinates; parameters in radians: the point at t is center + cos t * major + sin t * minor.
struct Ellipse {
  Point center;
  Point major_axis = x_axis;
  double ratio = 1;
  double start_parameter = 0, end_parameter = 2 * std::numbers::pi;
  Point normal = z_axis;
};

template <class Fields>
void fields(Fields& field, Ellipse& ellipse) {
  field.subclass("AcDbEllipse");
  field("Center", 10, ellipse.center);
  field("MajorAxis", 11, ellipse.major_axis);
  field("Normal", 210, ellipse.normal, unless{z_axis});
  field("RadiusRatio", 40, ellipse.ratio);
  field("StartParameter", 41, ellipse.start_parameter);
  field("EndParameter", 42, ellipse.end_parameter);
}

Point minor_axis(const Ellipse& ellipse);
Point point_at(const Ellipse& ellipse, double parameter);
/// Start and end angle from the major axis (radians), which differ from the parameters unless the
/// ratio is 1.
double angle_of_parameter(const Ellipse& ellipse, double parameter);
double parameter_of_angle(const Ellipse& ellipse, double angle);
bool is_closed(const Ellipse& ellipse);
/// How far the parameter goes, in (0, 2 pi], whatever turns the file counts.
double sweep(const Ellipse& ellipse);
double length(const Ellipse& ellipse);
/// Of a part: between the curve and its chord.
double area(const Ellipse& ellipse);
Box extents(const Ellipse& ellipse);
void transform(Ellipse& ellipse, const Matrix& matrix);
std::vector<Point> outline(const Ellipse& ellipse);

}  // namespace velmar::drawing
