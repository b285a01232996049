#pragma once

#include "drawing/faults.h"

namespace velmar::drawing {

/// Handles that name nothing: owners, dictionaries, groups, drawing orders, reactors, pointers; and
/// owners that do not list what they own; handles from the next one on.
void check_handles(const Store& store, Faults& faults);
/// Names of layers, linetypes, styles, blocks and applications that no table lists.
void check_names(const Store& store, Faults& faults);
/// Blocks without their row and rows without their block; vertices and attributes without an end.
void check_structure(const Store& store, Faults& faults);

}  // namespace velmar::drawing
