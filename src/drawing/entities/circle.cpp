#include "drawing/entities/circle.h"

#include <cmath>
#include <numbers>

#include "drawing/geometry/conic.h"
#include "drawing/geometry/plane_map.h"

namespace velmar::drawing {

namespace {

Conic conic(const Circle& circle) { return circular(circle.center, circle.radius, circle.normal); }

}  // namespace

double length(const Circle& circle) { return full_turn * std::abs(circle.radius); }

double area(const Circle& circle) { return std::numbers::pi * circle.radius * circle.radius; }

Box extents(const Circle& circle) {
  return extruded(extents(conic(circle)), circle.normal, circle.thickness);
}

// A map that would make it an ellipse leaves a circle of the same area.
void transform(Circle& circle, const Matrix& matrix) {
  const PlaneMap plane = plane_map(matrix, circle.normal);
  circle.center = plane.map(circle.center);
  circle.radius *= plane.stretch;
  circle.thickness *= plane.rise;
  circle.normal = plane.normal;
}

std::vector<Point> outline(const Circle& circle) { return outline(conic(circle)); }

}  // namespace velmar::drawing
