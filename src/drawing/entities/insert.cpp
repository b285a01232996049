#include "drawing/entities/insert.h"

#include <cmath>

#include "drawing/geometry/ocs.h"
#include "drawing/geometry/plane_map.h"

namespace velmar::drawing {

Matrix placement(const Insert& insert, Point base, int column, int row) {
  const Matrix turn = rotation({}, z_axis, insert.rotation);
  // The spacing turns with the block, but is not scaled with it.
  const Point cell{column * insert.column_spacing, row * insert.row_spacing, 0};
  const Matrix scale{x_axis * insert.x_scale, y_axis * insert.y_scale, z_axis * insert.z_scale, {}};
  return ocs_to_world(insert.normal) * translation(insert.insertion) * turn * translation(cell) *
         scale * translation(-base);
}

// A mirror turns the y scale over. Of a map that shears or scales unevenly the scales take what
// they can: its effect along the block's own x axis and on areas and heights.
void transform(Insert& insert, const Matrix& matrix) {
  const PlaneMap plane = plane_map(matrix, insert.normal);
  const double along = plane.along(insert.rotation);
  const double across = plane.across(insert.rotation) * (plane.mirrored ? -1 : 1);
  insert.insertion = plane.map(insert.insertion);
  insert.rotation = plane.angle(insert.rotation);
  insert.x_scale *= along;
  insert.y_scale *= across;
  insert.z_scale *= plane.rise;
  insert.column_spacing *= along;
  insert.row_spacing *= across;
  insert.normal = plane.normal;
}

}  // namespace velmar::drawing
