#pragma once

#include <unordered_set>

#include "drawing/store.h"

namespace velmar::drawing {

// What is there for the sake of others, and what becomes of it when those are erased. Each is
// linear in the drawing.

using Handles = std::unordered_set<Handle>;

/// Erases associations of dimensions (DIMASSOC) with anything that is gone: the dimension stays
/// where it is.
void erase_associations(Store& store, const Handles& gone);
/// Hatches that follow anything that is gone follow nothing any more.
void detach_hatches(Store& store, const Handles& gone);
/// Leaders that lead to a note that is gone lead to nothing.
void release_leaders(Store& store, const Handles& gone);
/// Erases the blocks "*Dn" of erased dimensions that nothing else shows.
void erase_drawn_blocks(Store& store, const std::unordered_set<std::uint32_t>& dimensions);

}  // namespace velmar::drawing
