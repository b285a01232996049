#pragma once

#include "drawing/entities/text.h"

namespace velmar::drawing {

/// ATTRIB of an INSERT.
struct Attrib : Text {
  std::string tag;
  std::int32_t flags = 0;  // 1 invisible, 2 constant, 4 verify, 8 preset
  std::int32_t field_length = 0;
};

/// The fields that follow those of the text.
template <class Fields>
void attribute_fields(Fields& field, Attrib& attrib) {
  field("TagString", 2, attrib.tag);
  field("Flags", 70, attrib.flags);
  field("FieldLength", 73, attrib.field_length, unless{0});
  field("VerticalAlignment", 74, attrib.vertical, unless{0});
}

template <class Fields>
void fields(Fields& field, Attrib& attrib) {
  text_fields(field, attrib);
  field.subclass("AcDbAttribute");
  attribute_fields(field, attrib);
}

}  // namespace velmar::drawing
