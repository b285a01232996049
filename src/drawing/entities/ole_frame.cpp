#include "drawing/entities/ole_frame.h"

namespace velmar::drawing {

Box extents(const OleFrame& frame) {
  Box box;
  box.add(frame.upper_left);
  box.add(frame.lower_right);
  return box;
}

void transform(OleFrame& frame, const Matrix& matrix) {
  const bool only_moves = matrix.x == x_axis && matrix.y == y_axis && matrix.z == z_axis;
  if (only_moves) {
    frame.upper_left = matrix(frame.upper_left);
    frame.lower_right = matrix(frame.lower_right);
    return;
  }
  const Point middle = (frame.upper_left + frame.lower_right) * 0.5;
  const Point half = (frame.upper_left - middle) * stretch(matrix);
  frame.upper_left = matrix(middle) + half;
  frame.lower_right = matrix(middle) - half;
}

std::vector<Point> outline(const OleFrame& frame) {
  const Point &a = frame.upper_left, &b = frame.lower_right;
  return {a, {b.x, a.y, a.z}, b, {a.x, b.y, b.z}, a};
}

}  // namespace velmar::drawing
