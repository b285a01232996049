#pragma once

#include <string>
#include <vector>

#include "embedded/named_collection.h"

namespace velmar::embedded {

/// The layers of a drawing, layer "0" first, then in the order of its table. Add of a name that is
/// there gives that layer as it is.
struct LayerRows {
  using Id = drawing::LayerId;
  static std::vector<Id> ids(const drawing::Drawing& drawing);
  static bool exists(const drawing::Drawing& drawing, Id id);
  static Value object(const DocumentPointer& document, Id id);
  static Id named(const drawing::Drawing& drawing, const std::string& name);
  static Id add(drawing::Drawing& drawing, const std::string& name);
};
using LayersObject = NamedCollection<LayerRows>;

}  // namespace velmar::embedded
