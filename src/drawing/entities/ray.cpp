#include "drawing/entities/ray.h"

#include "drawing/geometry/ocs.h"

namespace velmar::drawing {

namespace {

constexpr double far = 1e8;

}  // namespace

void transform(Ray& ray, const Matrix& matrix) {
  ray.base = matrix(ray.base);
  const Point direction = matrix.direction(ray.direction);
  if (direction != ray.direction && norm(direction) > 0) ray.direction = unit_normal(direction);
}

std::vector<Point> outline(const Ray& ray) { return {ray.base, ray.base + ray.direction * far}; }

std::vector<Point> outline(const Xline& line) {
  return {line.base - line.direction * far, line.base + line.direction * far};
}

}  // namespace velmar::drawing
