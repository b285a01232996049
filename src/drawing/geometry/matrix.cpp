#include "drawing/geometry/matrix.h"

#include "drawing/geometry/ocs.h"

namespace velmar::drawing {

Matrix operator*(const Matrix& first, const Matrix& second) {
  // Any pivot is right; this one is where a rigid `second` takes to the pivot of `first`.
  const Point far = first.pivot;
  const Point pivot = far == Point{}
                          ? second.pivot
                          : Point{dot(second.x, far), dot(second.y, far), dot(second.z, far)};
  return {first.direction(second.x), first.direction(second.y), first.direction(second.z),
          first(second(pivot)) - pivot, pivot};
}

Matrix translation(Point offset) { return {x_axis, y_axis, z_axis, offset}; }

Matrix rotation(Point base, Point axis, double radians) {
  const Point n = unit_normal(axis);
  double c = std::cos(radians), s = std::sin(radians);
  // A right angle in binary is not quite one; its cosine must not leave 6e-17 in coordinates.
  if (std::abs(c) < 1e-15) c = 0;
  if (std::abs(s) < 1e-15) s = 0;
  const auto turned = [&](Point v) { return v * c + cross(n, v) * s + n * (dot(n, v) * (1 - c)); };
  return {turned(x_axis), turned(y_axis), turned(z_axis), {}, base};
}

Matrix scaling(Point base, double factor) {
  return {x_axis * factor, y_axis * factor, z_axis * factor, {}, base};
}

Matrix reflection(Point base, Point normal) {
  const Point n = unit_normal(normal);
  const auto reflected = [&](Point v) { return v - n * (2 * dot(n, v)); };
  return {reflected(x_axis), reflected(y_axis), reflected(z_axis), {}, base};
}

double determinant(const Matrix& matrix) { return dot(matrix.x, cross(matrix.y, matrix.z)); }

double stretch(const Matrix& matrix) { return std::cbrt(std::abs(determinant(matrix))); }

}  // namespace velmar::drawing
