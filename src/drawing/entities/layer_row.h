#pragma once

#include <cstdint>
#include <string>

#include "drawing/entities/field.h"

namespace velmar::drawing {

/// A row of the LAYER table. A layer that is switched off has its colour negative.
struct LayerRow {
  static constexpr std::int32_t frozen_flag = 1, locked_flag = 4, xref_flag = 16;

  std::string name;
  std::int32_t flags = 0;
  std::int32_t color = 7;
  std::string linetype = "Continuous";
  std::int32_t plottable = 1;
  std::int32_t lineweight = -3;

  bool on() const { return color >= 0; }
  bool frozen() const { return (flags & frozen_flag) != 0; }
  bool locked() const { return (flags & locked_flag) != 0; }
};

template <class Fields>
void fields(Fields& field, LayerRow& layer) {
  field.subclass("AcDbLayerTableRecord");
  field("Name", 2, layer.name);
  field("Flags", 70, layer.flags);
  field("Color", 62, layer.color);
  field("Linetype", 6, layer.linetype);
  field("Plottable", 290, layer.plottable, unless{1});
  field("Lineweight", 370, layer.lineweight, unless{-3});
}

}  // namespace velmar::drawing
