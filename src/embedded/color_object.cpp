#include "embedded/color_object.h"

#include <array>
#include <cmath>
#include <limits>

#include "basic/conversion.h"
#include "embedded/arguments.h"
#include "embedded/errors.h"
#include "embedded/plain_object.h"

namespace velmar::embedded {
namespace {

constexpr std::int32_t by_layer = 256, by_block = 0;

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

class ColorObject final : public PlainObject {
 public:
  explicit ColorObject(ColorValue color) : color_(color) {}

  const ColorValue& color() const { return color_; }

  Value get(Member member) override {
    const std::int32_t shown = color_.rgb >= 0 ? color_.rgb : rgb_of_index(color_.index);
    switch (member) {
      case Member::ObjectName:
        return "AcDbColor";
      case Member::Red:
        return shown >> 16 & 0xFF;
      case Member::Green:
        return shown >> 8 & 0xFF;
      case Member::Blue:
        return shown & 0xFF;
      case Member::ColorIndex:
        return color_.index;
      case Member::ColorMethod:
        return method();
      case Member::EntityColor:
        return entity_color();
      default:
        throw no_such_member(member);
    }
  }

  void put(Member member, const Value& value) override {
    if (member != Member::ColorIndex) throw no_such_member(member);
    const auto index = basic::convert<std::int32_t>(value);
    if (index < 0 || index > by_layer) throw failure(HostError::invalid_input);
    color_ = {index, -1};
  }

  Value call(Member member, std::span<Value> values) override {
    if (member != Member::SetRGB) return PlainObject::call(member, values);
    const Arguments arguments(member, values, 3, 3);
    std::int32_t rgb = 0;
    for (std::size_t i = 0; i < 3; ++i) {
      const std::int32_t channel = arguments.integer(i);
      if (channel < 0 || channel > 0xFF) throw failure(HostError::invalid_input);
      rgb = rgb << 8 | channel;
    }
    color_ = {nearest_index(rgb), rgb};
    return {};
  }

 private:
  /// AcColorMethod.
  std::int32_t method() const {
    if (color_.rgb >= 0) return 0xC2;
    if (color_.index == by_layer) return 0xC0;
    return color_.index == by_block ? 0xC1 : 0xC3;
  }

  /// The method in the highest byte, then the colour or its index.
  std::int32_t entity_color() const {
    const std::int32_t low = color_.rgb >= 0 ? color_.rgb : color_.index & 0xFF;
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(method()) << 24 |
                                     static_cast<std::uint32_t>(low));
  }

  ColorValue color_;
};

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

std::shared_ptr<host::Object> make_color(ColorValue color) {
  return std::make_shared<ColorObject>(color);
}

ColorValue color_of(const Value& value) {
  const auto* reference = value.if_is<basic::Reference>();
  const auto* object = reference ? dynamic_cast<const ColorObject*>(reference->get()) : nullptr;
  if (!object) throw invalid_argument("Color", Member::TrueColor);
  return object->color();
}

}  // namespace velmar::embedded
