#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "embedded/document_state.h"

namespace velmar::embedded {

// Entities that a typed answer points at: by handle in model space and on every sheet, otherwise in
// the current space.

/// What an answer was read as, or why it cannot be used.
template <class T>
struct Reading {
  std::optional<T> value;
  std::string refused;
};

struct Picked {
  drawing::RecordId entity;  // none where the user pointed at nothing
  drawing::Point at;         // where he pointed; for a handle some point of the entity
};

/// `#2F`, `(handent "2F")`, `x,y`, `L`. A part of an entity stands for the whole.
Reading<Picked> read_entity(const DocumentState& document, std::string_view typed);

/// One of the above, `ALL`, `P`, `W x1,y1 x2,y2`, `C x1,y1 x2,y2`. Not every one of the entities
/// need be visible; erased ones are left out.
Reading<std::vector<drawing::RecordId>> read_selection(const DocumentState& document,
                                                       std::string_view typed);

}  // namespace velmar::embedded
