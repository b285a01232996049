#pragma once

#include <span>
#include <vector>

#include "drawing/geometry/box.h"
#include "drawing/geometry/matrix.h"
#include "drawing/geometry/point.h"

namespace velmar::drawing {

/// A vertex of a polyline in its own plane. The bulge is the tangent of a quarter of the angle of
/// the arc to the next vertex: 0 a straight segment, 1 a half circle to the right of the way,
/// negative clockwise. (DXF reference, group 42 of LWPOLYLINE and VERTEX.)
struct BulgeVertex {
  double x = 0, y = 0;
  double start_width = 0, end_width = 0;
  double bulge = 0;
  friend bool operator==(const BulgeVertex&, const BulgeVertex&) = default;
};

/// The arc of a segment with a bulge that is not 0.
struct BulgeArc {
  Point center;
  double radius = 0;
  double start_angle = 0;  // radians
  double sweep = 0;        // signed, radians: 4 atan(bulge)
};
BulgeArc arc_of(const BulgeVertex& from, const BulgeVertex& to);
/// Below it the circle of a segment is so large that its centre and its angles, as numbers, miss
/// the segment by more than a straight line does.
inline constexpr double flattest_bulge = 1e-8;
/// Whether the segment that begins there is drawn as an arc: not where its bulge is 0, too small to
/// be told from a straight line, or no number.
bool is_arc(const BulgeVertex& from);
/// The point `turn` radians (signed) on the way along the arc that begins at `from`. Accurate for
/// flat arcs too, whose centre is far away.
Point point_on(const BulgeVertex& from, const BulgeArc& arc, double turn);

/// Of the whole way; `closed` adds the segment from the last vertex to the first.
double path_length(std::span<const BulgeVertex> vertices, bool closed);
/// Positive when counter-clockwise; closed by a straight segment where `closed` is false.
double signed_area(std::span<const BulgeVertex> vertices, bool closed);
/// The way as points (z 0), arcs by chords of at most `step` radians; ends at the first vertex if
/// closed.
std::vector<Point> flatten(std::span<const BulgeVertex> vertices, bool closed, double step = 0.05);
/// The exact box of the way with the widths of its segments (each by itself: corners are not
/// mitred), as it lies in the world by `to_world`.
Box extents(std::span<const BulgeVertex> vertices, bool closed, const Matrix& to_world);

}  // namespace velmar::drawing
