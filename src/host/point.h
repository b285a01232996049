#pragma once

#include "basic/value.h"

namespace velmar::host {

/// A point or a vector in world coordinates, in drawing units.
struct Point {
  double x = 0, y = 0, z = 0;
  friend bool operator==(const Point&, const Point&) = default;
};

/// The corners of an axis-parallel box.
struct Box {
  Point min, max;
};

/// An array of three doubles, as a host takes points.
basic::Value to_value(const Point& point);

/// Error 13 unless the value is a list of exactly three numbers.
Point to_point(const basic::Value& value);

}  // namespace velmar::host
