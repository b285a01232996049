#pragma once

#include <string_view>

#include "host/entities.h"

namespace velmar {

/// A short name of an entity kind, as callers give it: the host's class is "AcDb" followed by the
/// type word.
struct KindCode {
  std::string_view code;  // in capitals; all lower case is accepted too, a mixed spelling is not
  std::string_view type_word;
  std::string_view view;  // the class_name of the view through which GetBRec takes the entity
};

inline constexpr KindCode kind_codes[] = {
    {"L", "Line", host::Line::class_name},
    {"C", "Circle", host::Circle::class_name},
    {"A", "Arc", host::Arc::class_name},
    // Kept: "PL" takes the heavy polyline, although its class is that of the lightweight one, which
    // only "PLW" takes.
    {"PL", "Polyline", host::HeavyPolyline::class_name},
    {"PLW", "Polyline", host::LightweightPolyline::class_name},
    {"2P", "2dPolyline", host::HeavyPolyline::class_name},
    {"3P", "3dPolyline", host::Polyline3D::class_name},
    {"T", "Text", host::Text::class_name},
    {"E", "Ellipse", host::Ellipse::class_name},
    {"BR", "BlockReference", host::BlockReference::class_name},
    {"H", "Hatch", host::Hatch::class_name},
    // Kept: no entity is of a class "AcDbDimAligned"; which dimensions "D" means is the command's
    // affair.
    {"D", "DimAligned", host::Dimension::class_name},
};

/// The row of a code in one of its two spellings, or null.
const KindCode* find_kind_code(std::string_view code);

}  // namespace velmar
