#pragma once

#include "drawing/store.h"

namespace velmar::drawing {

/// Saves the entities of a space, with their parts, before another record from now on.
void move_entities(Store& store, SpaceId space, RecordId before);
/// Makes a sheet the one that is called *Paper_Space, whose entities stand in the ENTITIES section;
/// the one that was takes its name and keeps its entities in its block.
void swap_sheets(Store& store, SpaceId sheet);
/// A new LAYOUT object of that name, without page setup, for a sheet that is made with it. Fails
/// with Error where the file has no dictionary of layouts.
Layout add_layout_records(Store& store, const std::string& name, std::int32_t tab);

}  // namespace velmar::drawing
