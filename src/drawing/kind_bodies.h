#pragma once

#include <string_view>

#include "drawing/entity.h"
#include "drawing/kind.h"

namespace velmar::drawing {

/// What entities of the kind have before anything is read; Opaque for kinds without fields.
Body empty_body(Kind kind);

/// What a new record begins with.
struct NewRecord {
  std::string_view kind;  // empty: entities of this sort are never made
  // Subclasses that the field list does not name, or not by one name.
  std::string_view marker = {}, second_marker = {};
};
NewRecord new_record(const Body& body);

}  // namespace velmar::drawing
