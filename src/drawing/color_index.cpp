#include "drawing/color_index.h"

#include <array>
#include <cmath>
#include <limits>

namespace velmar::drawing {
namespace {

constexpr std::int32_t rgb(double red, double green, double blue) {
  return static_cast<std::int32_t>(red) << 16 | static_cast<std::int32_t>(green) << 8 |
         static_cast<std::int32_t>(blue);
}

/// Indexes 10 to 249: 24 hues of five shades, each full (even) and half saturated (odd).
std::int32_t wheel_color(std::int32_t index) {
  static constexpr std::array<double, 5> shades{255, 165, 127, 76, 38};
  const int family = index / 10 - 1;  // of ten colours of one hue
  const double hue = family / 4.0;    // sixths of the circle
  const double shade = shades[static_cast<std::size_t>(index % 10 / 2)];
  const double pale = index % 2 == 1 ? 0.5 : 0;
  const auto channel = [&](double peak) {
    double distance = std::abs(hue - peak);
    distance = std::min(distance, 6 - distance);
    const double pure = distance <= 1 ? 1 : distance >= 2 ? 0 : 2 - distance;
    return shade * (pale + (1 - pale) * pure);
  };
  return rgb(channel(0), channel(2), channel(4));
}

}  // namespace

std::int32_t rgb_of_index(std::int32_t index) {
  static constexpr std::array<std::int32_t, 10> first{0xFFFFFF, 0xFF0000, 0xFFFF00, 0x00FF00,
                                                      0x00FFFF, 0x0000FF, 0xFF00FF, 0xFFFFFF,
                                                      0x808080, 0xC0C0C0};
  static constexpr std::array<std::int32_t, 6> greys{0x333333, 0x505050, 0x696969,
                                                     0x828282, 0xBEBEBE, 0xFFFFFF};
  if (index < 0 || index > 255) return first[0];
  if (index < 10) return first[static_cast<std::size_t>(index)];
  if (index >= 250) return greys[static_cast<std::size_t>(index - 250)];
  return wheel_color(index);
}

std::int32_t nearest_index(std::int32_t rgb) {
  std::int32_t nearest = 7;
  std::int32_t least = std::numeric_limits<std::int32_t>::max();
  for (std::int32_t index = 1; index <= 255; ++index) {
    std::int32_t distance = 0;
    for (const int shift : {16, 8, 0}) {
      const std::int32_t step = (rgb >> shift & 0xFF) - (rgb_of_index(index) >> shift & 0xFF);
      distance += step * step;
    }
    if (distance < least) {
      least = distance;
      nearest = index;
    }
  }
  return nearest;
}

}  // namespace velmar::drawing
