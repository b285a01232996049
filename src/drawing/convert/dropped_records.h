#pragma once

#include <unordered_set>

#include "drawing/convert/tag_drawing.h"

namespace velmar::drawing {

/// Takes records out by their handles, with their parts and what they own, and everything that
/// names them: entries of dictionaries, members of groups, reactors, pointers.
void drop_records(TagDrawing& drawing, std::unordered_set<Handle> dropped);

}  // namespace velmar::drawing
