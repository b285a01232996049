#pragma once

#include <cstdint>

#include "drawing/record.h"

namespace velmar::embedded {

// ObjectID: a number that is the object's own as long as its drawing is open; 0 for no object.

constexpr std::int32_t object_id(drawing::RecordId record) {
  return record == drawing::RecordId::none ? 0 : static_cast<std::int32_t>(index(record) + 1);
}

/// The record of that number, or none; whether there is such a record is for the caller to look.
constexpr drawing::RecordId record_of(std::int32_t object_id) {
  return object_id <= 0 ? drawing::RecordId::none : static_cast<drawing::RecordId>(object_id - 1);
}

}  // namespace velmar::embedded
