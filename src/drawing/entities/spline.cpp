#include "drawing/entities/spline.h"

#include "drawing/geometry/plane_map.h"

namespace velmar::drawing {

std::optional<Nurbs> curve(const Spline& spline) {
  Nurbs result{spline.degree, spline.knots, {}};
  for (const Point& point : spline.control_points) result.control_points.push_back({point});
  const bool has_weights = spline.weights.size() == spline.control_points.size();
  for (std::size_t i = 0; has_weights && i < spline.weights.size(); ++i) {
    result.control_points[i].weight = spline.weights[i];
  }
  if (!is_sound(result)) return std::nullopt;
  return result;
}

double length(const Spline& spline) {
  const auto drawn = curve(spline);
  return drawn ? length(*drawn) : 0;
}

double area(const Spline& spline) {
  const auto drawn = curve(spline);
  if (!drawn) return 0;
  const Point base = evaluate(*drawn, first_parameter(*drawn)).position;
  return norm(swept_area(*drawn, base)) / 2;
}

Box extents(const Spline& spline) {
  const auto drawn = curve(spline);
  return drawn ? extents(*drawn) : Box{};
}

// Exact for every affine map.
void transform(Spline& spline, const Matrix& matrix) {
  for (Point& point : spline.control_points) point = matrix(point);
  for (Point& point : spline.fit_points) point = matrix(point);
  spline.start_tangent = matrix.direction(spline.start_tangent);
  spline.end_tangent = matrix.direction(spline.end_tangent);
  spline.normal = plane_map(matrix, spline.normal).normal;
}

std::vector<Point> outline(const Spline& spline) {
  const auto drawn = curve(spline);
  return drawn ? flatten(*drawn) : std::vector<Point>();
}

}  // namespace velmar::drawing
