#pragma once

#include "drawing/geometry/box.h"
#include "drawing/geometry/matrix.h"

namespace velmar::drawing {

/// What an affine map does to things that lie in the plane of a normal: where they come to lie, in
/// the object coordinate system of the plane's image. Parts of it that change nothing are exactly
/// neutral, so that moving an entity does not touch its angles and sizes.
struct PlaneMap {
  Point normal;    // of the image: on the side to which the map takes the old one
  Matrix map;      // from the old OCS to the new one
  bool similar;    // lengths in the plane are stretched alike in all directions
  bool mirrored;   // clockwise becomes counter-clockwise
  double turn;     // radians, the direction that the old x axis gets
  double stretch;  // of lengths in the plane; the root of the factor of areas if not `similar`
  double rise;     // of lengths along the normal, at least 0

  /// The image of a direction in the plane, radians.
  double angle(double direction) const;
  /// How lengths in that direction are stretched.
  double along(double direction) const;
  /// The same square to that direction, as far as areas in the plane tell.
  double across(double direction) const;
};
PlaneMap plane_map(const Matrix& matrix, Point normal);

/// The box of what is in `box` and its copy, moved by `thickness` along the normal.
Box extruded(const Box& box, Point normal, double thickness);

}  // namespace velmar::drawing
