#pragma once

#include <cmath>

namespace velmar::drawing {

/// A point or a vector, in drawing units.
struct Point {
  double x = 0, y = 0, z = 0;
  friend bool operator==(const Point&, const Point&) = default;
};

inline constexpr Point x_axis{1, 0, 0};
inline constexpr Point y_axis{0, 1, 0};
inline constexpr Point z_axis{0, 0, 1};

constexpr Point operator+(Point a, Point b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
constexpr Point operator-(Point a, Point b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
constexpr Point operator-(Point a) { return {-a.x, -a.y, -a.z}; }
constexpr Point operator*(Point a, double s) { return {a.x * s, a.y * s, a.z * s}; }
constexpr Point operator*(double s, Point a) { return a * s; }
constexpr double dot(Point a, Point b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
constexpr Point cross(Point a, Point b) {
  return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
inline double norm(Point a) { return std::sqrt(dot(a, a)); }

}  // namespace velmar::drawing
