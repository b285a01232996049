#pragma once

#include <string>

#include "drawing/entities/field.h"

namespace velmar::drawing {

/// A row of the LTYPE table, without its pattern.
struct LinetypeRow {
  std::string name, description;
};

template <class Fields>
void fields(Fields& field, LinetypeRow& linetype) {
  field.subclass("AcDbLinetypeTableRecord");
  field("Name", 2, linetype.name);
  field("Description", 3, linetype.description);
}

}  // namespace velmar::drawing
