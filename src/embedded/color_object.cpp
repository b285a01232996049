#include "embedded/color_object.h"

#include "basic/conversion.h"
#include "drawing/color_index.h"
#include "embedded/arguments.h"
#include "embedded/errors.h"
#include "embedded/plain_object.h"

namespace velmar::embedded {
namespace {

using drawing::nearest_index;
using drawing::rgb_of_index;

constexpr std::int32_t by_layer = 256, by_block = 0;

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
