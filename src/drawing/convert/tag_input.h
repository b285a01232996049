#pragma once

#include "drawing/convert/tag_drawing.h"
#include "drawing/store.h"

namespace velmar::drawing {

/// All tags of a record, its group 0 left out. Fails with Error where a line of it is no DXF.
Tags read_tags(const Store& store, RecordId id);
/// Takes a drawing apart, without what was erased.
TagDrawing take_apart(const Store& store);

}  // namespace velmar::drawing
