#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "drawing/entities/field.h"
#include "drawing/geometry/matrix.h"

namespace velmar::drawing {

/// INSERT: a block reference, or an array of them. The insertion point is in the OCS of the normal;
/// rotation in radians.
struct Insert {
  std::string block;
  Point insertion;
  double x_scale = 1, y_scale = 1, z_scale = 1;
  double rotation = 0;
  std::int32_t columns = 1, rows = 1;
  double column_spacing = 0, row_spacing = 0;
  Point normal = z_axis;
  std::int32_t attributes_follow = 0;

  bool is_array() const { return columns > 1 || rows > 1; }
};

template <class Fields>
void fields(Fields& field, Insert& insert) {
  field.any_subclass();  // AcDbBlockReference or AcDbMInsertBlock
  field("AttributesFollow", 66, insert.attributes_follow, unless{0});
  field("Name", 2, insert.block);
  field("InsertionPoint", 10, ocs(insert.insertion));
  field("XScaleFactor", 41, insert.x_scale, unless{1.0});
  field("YScaleFactor", 42, insert.y_scale, unless{1.0});
  field("ZScaleFactor", 43, insert.z_scale, unless{1.0});
  field("Rotation", 50, degrees(insert.rotation), unless{0.0});
  field("Columns", 70, insert.columns, unless{1});
  field("Rows", 71, insert.rows, unless{1});
  field("ColumnSpacing", 44, insert.column_spacing, unless{0.0});
  field("RowSpacing", 45, insert.row_spacing, unless{0.0});
  field("Normal", 210, insert.normal, unless{z_axis});
}

/// From the block's coordinates to the world's, for the copy in that column and row (from 0).
/// `base` is the block's base point.
Matrix placement(const Insert& insert, Point base, int column = 0, int row = 0);
void transform(Insert& insert, const Matrix& matrix);

}  // namespace velmar::drawing
