#pragma once

#include <cstdint>
#include <vector>

#include "drawing/entities/field.h"
#include "drawing/geometry/box.h"
#include "drawing/geometry/matrix.h"

namespace velmar::drawing {

/// LEADER: an arrow to a note, in world coordinates. The note is another entity.
struct Leader {
  std::int32_t has_arrow = 1;
  std::int32_t is_spline = 0;
  std::vector<Point> vertices;  // the first one is the arrow's tip
  Point normal = z_axis;
  Point horizontal = x_axis;              // direction of the note
  Point block_offset, annotation_offset;  // from the note's place to the last vertex
};

template <class Fields>
void fields(Fields& field, Leader& leader) {
  field.subclass("AcDbLeader");
  field("HasArrow", 71, leader.has_arrow, unless{1});
  field("IsSpline", 72, leader.is_spline, unless{0});
  field.count(76, leader.vertices);
  field.repeated(10, leader.vertices);
  field("Normal", 210, leader.normal, unless{z_axis});
  field("HorizontalDirection", 211, leader.horizontal, unless{x_axis});
  field("BlockOffset", 212, leader.block_offset, unless{Point{}});
  field("AnnotationOffset", 213, leader.annotation_offset, unless{Point{}});
}

/// Of the vertices.
Box extents(const Leader& leader);
void transform(Leader& leader, const Matrix& matrix);
std::vector<Point> outline(const Leader& leader);

}  // namespace velmar::drawing
