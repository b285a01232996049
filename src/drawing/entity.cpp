#include "drawing/entity.h"

#include <concepts>

namespace velmar::drawing {
namespace {

/// A map that leaves what is upright upright.
bool is_upright(const Matrix& matrix) {
  const double size = matrix.x.x;
  return size > 0 && matrix.x == x_axis * size && matrix.y == y_axis * size &&
         matrix.z == z_axis * size;
}

struct CanTransform {
  const Matrix& matrix;

  bool operator()(const Opaque&) const { return false; }
  bool operator()(const OleFrame&) const { return is_upright(matrix); }
  bool operator()(const Region& region) const { return can_transform(region, matrix); }
  template <class Shape>
  bool operator()(const Shape&) const {
    return true;
  }
};

}  // namespace

bool can_transform(const Body& body, const Matrix& matrix) {
  return std::visit(CanTransform{matrix}, body);
}

void transform(Body& body, const Matrix& matrix) {
  std::visit(
      [&]<class Shape>(Shape& shape) {
        if constexpr (!std::same_as<Shape, Opaque>) transform(shape, matrix);
      },
      body);
}

}  // namespace velmar::drawing
