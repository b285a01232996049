#include "drawing/entities/kept_dimension.h"

#include <cmath>

#include "drawing/geometry/plane_map.h"

namespace velmar::drawing {

bool keeps_measures(const Matrix& matrix) {
  constexpr double tolerance = 1e-9;
  const auto is_zero = [](double value) { return std::abs(value) <= tolerance; };
  return is_zero(norm(matrix.x) - 1) && is_zero(norm(matrix.y) - 1) &&
         is_zero(dot(matrix.x, matrix.y)) && is_zero(norm(cross(matrix.x, matrix.y) - matrix.z));
}

void transform(KeptDimension& dimension, const Matrix& matrix) {
  const PlaneMap plane = plane_map(matrix, dimension.normal);
  for (Point* point :
       {&dimension.definition, &dimension.first, &dimension.second, &dimension.third}) {
    *point = matrix(*point);
  }
  for (Point* point : {&dimension.leader_start, &dimension.leader_end}) {
    if (*point != Point{}) *point = matrix(*point);
  }
  dimension.text_position = plane.map(dimension.text_position);
  dimension.start_angle = plane.angle(dimension.start_angle);
  dimension.end_angle = plane.angle(dimension.end_angle);
  dimension.normal = plane.normal;
}

}  // namespace velmar::drawing
