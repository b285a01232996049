#pragma once

#include <span>

#include "drawing/purge_candidates.h"

namespace velmar::drawing {

/// Marks every candidate that anything in the drawing refers to, by handle or by name. What is not
/// understood counts: any handle, and any text that is a name. What a candidate says of itself (its
/// row, the entities of a block, objects that it owns) does not. One pass over all tags.
void mark_uses(const Store& store, Candidates& candidates,
               std::span<const std::string> names_in_use);

}  // namespace velmar::drawing
