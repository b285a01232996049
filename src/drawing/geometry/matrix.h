#pragma once

#include <array>

#include "drawing/geometry/point.h"

namespace velmar::drawing {

/// An affine map: p -> (x, y, z columns) (p - pivot) + pivot + origin. The pivot changes nothing
/// but the rounding: a point that a rotation is about stays where it is to the last bit, and points
/// near it keep their precision.
struct Matrix {
  Point x = x_axis, y = y_axis, z = z_axis;  // the images of the axes
  Point origin = {};
  Point pivot = {};

  Point operator()(Point p) const { return direction(p - pivot) + pivot + origin; }
  Point direction(Point v) const { return x * v.x + y * v.y + z * v.z; }
};

/// First `second`, then `first`.
Matrix operator*(const Matrix& first, const Matrix& second);

Matrix translation(Point offset);
/// About the axis through `base`, counter-clockwise as seen against the axis.
Matrix rotation(Point base, Point axis, double radians);
Matrix scaling(Point base, double factor);
/// In the plane through `base` with the given normal.
Matrix reflection(Point base, Point normal);
double determinant(const Matrix& matrix);
/// How the map stretches lengths, if it does so alike in all directions: the cube root of
/// |determinant|.
double stretch(const Matrix& matrix);

}  // namespace velmar::drawing
