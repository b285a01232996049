#pragma once

#include <cstdint>
#include <string>

#include "drawing/entities/field.h"

namespace velmar::drawing {

/// What every entity has. Colours: 0 by block, 256 by layer, 1 to 255 the index.
struct Common {
  std::string layer = "0";
  std::string linetype = "ByLayer";
  std::int32_t color = 256;
  std::int32_t true_color = -1;  // 0xRRGGBB, or -1
  double linetype_scale = 1;
  std::int32_t lineweight = -1;  // hundredths of a millimetre; -1 by layer, -2 by block, -3 default
  std::int32_t invisible = 0;
};

template <class Fields>
void fields(Fields& field, Common& common) {
  field.subclass("AcDbEntity");
  field("Layer", 8, common.layer, unless{std::string("0")});
  field("Linetype", 6, common.linetype, unless{std::string("ByLayer")});
  field("Color", 62, common.color, unless{256});
  field("TrueColor", 420, common.true_color, unless{-1});
  field("LinetypeScale", 48, common.linetype_scale, unless{1.0});
  field("Lineweight", 370, common.lineweight, unless{-1});
  field("Invisible", 60, common.invisible, unless{0});
}

}  // namespace velmar::drawing
