#include "drawing/entities/arc.h"

#include <cmath>
#include <utility>

#include "drawing/geometry/conic.h"
#include "drawing/geometry/plane_map.h"

namespace velmar::drawing {

namespace {

Conic conic(const Arc& arc) {
  return circular(arc.center, arc.radius, arc.normal, arc.start_angle, total_angle(arc));
}

}  // namespace

double total_angle(const Arc& arc) { return sweep_between(arc.start_angle, arc.end_angle); }

Point start_point(const Arc& arc) { return conic(arc)(arc.start_angle); }

Point end_point(const Arc& arc) { return conic(arc)(arc.end_angle); }

double length(const Arc& arc) { return std::abs(arc.radius) * total_angle(arc); }

double area(const Arc& arc) { return segment_area(arc.radius, total_angle(arc)); }

Box extents(const Arc& arc) { return extruded(extents(conic(arc)), arc.normal, arc.thickness); }

// A map that would make it a part of an ellipse keeps the directions of the ends and takes the
// radius that a circle would get.
void transform(Arc& arc, const Matrix& matrix) {
  const PlaneMap plane = plane_map(matrix, arc.normal);
  arc.center = plane.map(arc.center);
  arc.radius *= plane.stretch;
  arc.start_angle = plane.angle(arc.start_angle);
  arc.end_angle = plane.angle(arc.end_angle);
  if (plane.mirrored) std::swap(arc.start_angle, arc.end_angle);
  arc.thickness *= plane.rise;
  arc.normal = plane.normal;
}

std::vector<Point> outline(const Arc& arc) { return outline(conic(arc)); }

}  // namespace velmar::drawing
