#pragma once

#include "drawing/entities/attrib.h"

namespace velmar::drawing {

/// ATTDEF: what a block asks for and shows as an attribute of its references.
struct Attdef : Attrib {
  std::string prompt;
};

template <class Fields>
void fields(Fields& field, Attdef& definition) {
  text_fields(field, definition);
  field.subclass("AcDbAttributeDefinition");
  field("PromptString", 3, definition.prompt);
  attribute_fields(field, definition);
}

}  // namespace velmar::drawing
