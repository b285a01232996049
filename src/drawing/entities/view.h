#pragma once

#include "drawing/entities/field.h"

namespace velmar::drawing {

/// What a viewport shows of a space: so much around a point of its display plane, seen from a
/// direction and turned. The display plane's origin is the target.
struct View {
  Point center;  // in the display plane
  double height = 1;
  double aspect = 1;  // width over height
  Point direction = z_axis;
  Point target;
  double twist = 0;

  double width() const { return height * aspect; }
};

/// A row of the VPORT table.
struct ViewportRow : View {};

template <class Fields>
void fields(Fields& field, ViewportRow& row) {
  field.subclass("AcDbViewportTableRecord");
  field("Center", 12, row.center);
  field("Height", 40, row.height);
  field("Aspect", 41, row.aspect);
  field("Direction", 16, row.direction, unless{z_axis});
  field("Target", 17, row.target, unless{Point{}});
  field("Twist", 51, degrees(row.twist), unless{0.0});
}

/// A VIEWPORT entity that shows a sheet as a whole: what is seen is its own frame.
struct SheetViewport {
  Point center;
  double width = 12, height = 9;
  Point view_center;
  double view_height = 9;
};

template <class Fields>
void fields(Fields& field, SheetViewport& viewport) {
  field.subclass("AcDbViewport");
  field("Center", 10, viewport.center);
  field("Width", 40, viewport.width);
  field("Height", 41, viewport.height);
  field("ViewCenter", 12, viewport.view_center, unless{viewport.view_center});
  field("ViewHeight", 45, viewport.view_height, unless{viewport.view_height});
}

}  // namespace velmar::drawing
