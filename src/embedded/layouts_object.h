#pragma once

#include <string>
#include <vector>

#include "embedded/named_collection.h"

namespace velmar::embedded {

/// The layouts of a drawing, "Model" among them, in the alphabet's order. Files without layouts
/// have "Model" and "Layout1".
struct LayoutRows {
  using Id = drawing::Layout;
  static std::vector<Id> ids(const drawing::Drawing& drawing);
  static bool exists(const drawing::Drawing& drawing, const Id& layout);
  static Value object(const DocumentPointer& document, const Id& layout);
  static Id named(const drawing::Drawing& drawing, const std::string& name);
  static Id add(drawing::Drawing& drawing, const std::string& name);
};
using LayoutsObject = NamedCollection<LayoutRows>;

}  // namespace velmar::embedded
