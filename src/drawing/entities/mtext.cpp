#include "drawing/entities/mtext.h"

#include <cmath>

#include "drawing/geometry/angle.h"
#include "drawing/geometry/plane_direction.h"
#include "drawing/geometry/plane_map.h"

namespace velmar::drawing {
namespace {

Point at_angle(double radians, Point normal) {
  return ocs_to_world(normal).direction({std::cos(radians), std::sin(radians), 0});
}

}  // namespace

Point direction(const MText& text) {
  if (text.direction != Point{}) return plane_direction(text.direction, text.normal);
  return text.rotation != 0 ? at_angle(text.rotation, text.normal)
                            : plane_direction(x_axis, text.normal);
}

void set_direction(MText& text, Point along) {
  const bool as_without = text.direction == Point{} && text.rotation == 0 && along == x_axis;
  if (!as_without) text.direction = along;
  if (text.rotation != 0) text.rotation = rotation(text);
}

double rotation(const MText& text) {
  const Point along = world_to_ocs(text.normal).direction(direction(text));
  return wrapped(std::atan2(along.y, along.x));
}

void set_rotation(MText& text, double radians) {
  set_direction(text, at_angle(radians, text.normal));
}

std::vector<Point> outline(const MText& text) { return outline(layout(text)); }

Box extents(const MText& text) { return extents(layout(text)); }

// A mirrored text stays readable: its lines run along the image of the old ones, on the image of
// its box, the way that is nearer to the old one.
void transform(MText& text, const Matrix& matrix) {
  const PlaneMap plane = plane_map(matrix, text.normal);
  const double angle = rotation(text);
  const Point old_direction = direction(text);
  std::vector<Point> image;
  if (plane.mirrored) image = outline(text);

  const double along = plane.along(angle), across = plane.across(angle);
  text.height *= across;
  text.width *= along;
  text.insertion = matrix(text.insertion);
  const Point turned = matrix.direction(old_direction);
  const bool same = text.normal == plane.normal && turned == old_direction;
  text.normal = plane.normal;
  if (!same) set_direction(text, plane_direction(turned, plane.normal));
  if (!plane.mirrored) return;

  if (dot(direction(text), old_direction) < -1e-9) set_direction(text, -direction(text));
  const std::vector<Point> now = outline(text);
  if (now.empty()) return;
  text.insertion = text.insertion + matrix((image[0] + image[2]) * 0.5) - (now[0] + now[2]) * 0.5;
}

}  // namespace velmar::drawing
