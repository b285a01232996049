#include "drawing/entities/ole_frame.h"

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <optional>

namespace velmar::drawing {
namespace {

// The data begins with two bytes, of which the second one is a mark, and the corners of the frame,
// clockwise from the upper left one: three little-endian doubles each.
constexpr char mark = 0x55;
constexpr std::size_t corners_at = 2, number_size = 8, corner_size = 3 * number_size;
using Corners = std::array<Point, 4>;

double number_at(const std::string& data, std::size_t at) {
  std::uint64_t bits = 0;
  for (std::size_t i = number_size; i-- > 0;) {
    bits = bits << 8 | static_cast<unsigned char>(data[at + i]);
  }
  return std::bit_cast<double>(bits);
}

void write_number(std::string& data, std::size_t at, double number) {
  auto bits = std::bit_cast<std::uint64_t>(number);
  for (std::size_t i = 0; i < number_size; ++i, bits >>= 8) {
    data[at + i] = static_cast<char>(bits & 0xFF);
  }
}

bool is_rectangle(const Corners& corners) {
  const double size = norm(corners[2] - corners[0]);
  const auto same = [&](double a, double b) { return std::abs(a - b) <= 1e-9 * size; };
  const auto& [a, b, c, d] = corners;
  return size > 0 && std::isfinite(size) && same(a.y, b.y) && same(b.x, c.x) && same(c.y, d.y) &&
         same(d.x, a.x);
}

std::optional<Corners> corners_in(const std::string& data) {
  if (data.size() < corners_at + 4 * corner_size || data[1] != mark) return std::nullopt;
  Corners corners;
  std::size_t at = corners_at;
  for (Point& corner : corners) {
    corner = {number_at(data, at), number_at(data, at + number_size),
              number_at(data, at + 2 * number_size)};
    at += corner_size;
  }
  if (!is_rectangle(corners)) return std::nullopt;
  return corners;
}

void write_corners(std::string& data, const Corners& corners) {
  std::size_t at = corners_at;
  for (const Point& corner : corners) {
    for (const double number : {corner.x, corner.y, corner.z}) {
      write_number(data, at, number);
      at += number_size;
    }
  }
}

/// Maps the middle of the frame, and its size.
class FrameMap {
 public:
  FrameMap(const OlePlace& place, const Matrix& matrix)
      : matrix_(matrix),
        middle_((place.upper_left + place.lower_right) * 0.5),
        only_moves_(matrix.x == x_axis && matrix.y == y_axis && matrix.z == z_axis) {}

  Point operator()(Point corner) const {
    if (only_moves_) return matrix_(corner);
    return matrix_(middle_) + (corner - middle_) * stretch(matrix_);
  }

 private:
  const Matrix& matrix_;
  Point middle_;
  bool only_moves_;
};

}  // namespace

OlePlace place(const OleFrame& frame) {
  if (const auto corners = corners_in(frame.data)) return {(*corners)[0], (*corners)[2]};
  return {frame.upper_left, frame.lower_right};
}

Box extents(const OleFrame& frame) {
  const OlePlace at = place(frame);
  Box box;
  box.add(at.upper_left);
  box.add(at.lower_right);
  return box;
}

void transform(OleFrame& frame, const Matrix& matrix) {
  const FrameMap map({frame.upper_left, frame.lower_right}, matrix);
  if (auto corners = corners_in(frame.data)) {
    const FrameMap map_of_data(place(frame), matrix);
    for (Point& corner : *corners) corner = map_of_data(corner);
    write_corners(frame.data, *corners);
  }
  frame.upper_left = map(frame.upper_left);
  frame.lower_right = map(frame.lower_right);
}

std::vector<Point> outline(const OleFrame& frame) {
  const auto [a, b] = place(frame);
  return {a, {b.x, a.y, a.z}, b, {a.x, b.y, b.z}, a};
}

}  // namespace velmar::drawing
