#pragma once

#include <string>
#include <vector>

#include "embedded/named_collection.h"

namespace velmar::embedded {

/// The text styles of a drawing in the order of its table. Add of a name that is there gives that
/// style as it is.
struct TextStyleRows {
  using Id = drawing::RecordId;
  static std::vector<Id> ids(const drawing::Drawing& drawing) { return drawing.text_styles(); }
  static bool exists(const drawing::Drawing& drawing, Id id);
  static Value object(const DocumentPointer& document, Id id);
  static Id named(const drawing::Drawing& drawing, const std::string& name);
  static Id add(drawing::Drawing& drawing, const std::string& name);
};
using TextStylesObject = NamedCollection<TextStyleRows>;

}  // namespace velmar::embedded
