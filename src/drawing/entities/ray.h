#pragma once

#include <vector>

#include "drawing/entities/field.h"
#include "drawing/geometry/matrix.h"

namespace velmar::drawing {

/// RAY: from the base point on without end. The direction is a unit vector; both in world
/// coordinates. It has no finite extents.
struct Ray {
  Point base, direction = x_axis;
};

/// XLINE, the construction line: without end both ways.
struct Xline : Ray {};

template <class Fields>
void ray_fields(Fields& field, Ray& ray) {
  field("BasePoint", 10, ray.base);
  field("DirectionVector", 11, ray.direction);
}

template <class Fields>
void fields(Fields& field, Ray& ray) {
  field.subclass("AcDbRay");
  ray_fields(field, ray);
}

template <class Fields>
void fields(Fields& field, Xline& line) {
  field.subclass("AcDbXline");
  ray_fields(field, line);
}

void transform(Ray& ray, const Matrix& matrix);
/// As far as any drawing goes.
std::vector<Point> outline(const Ray& ray);
std::vector<Point> outline(const Xline& line);

}  // namespace velmar::drawing
