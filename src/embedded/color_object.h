#pragma once

#include <cstdint>
#include <memory>

#include "host/object.h"

namespace velmar::embedded {

/// An index (0 by block, 256 by layer, 1 to 255) and, for a true colour, 0xRRGGBB, else -1.
struct ColorValue {
  std::int32_t index = 256;
  std::int32_t rgb = -1;
};

/// What TrueColor gives: a colour of its own, with Red, Green, Blue, ColorIndex, ColorMethod,
/// EntityColor and SetRGB. Changing it changes no entity until it is put back.
std::shared_ptr<host::Object> make_color(ColorValue color);
/// The colour that such an object has; invalid argument for anything else.
ColorValue color_of(const basic::Value& value);

}  // namespace velmar::embedded
