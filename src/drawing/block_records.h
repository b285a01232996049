#pragma once

#include <string_view>

#include "drawing/store.h"

namespace velmar::drawing {

// The records a block is made of: its row in the BLOCK_RECORD table (none in R12), BLOCK and
// ENDBLK.

/// A new, empty block at the end of the table; `layout` is the handle of the LAYOUT it is the sheet
/// of, or 0. Fails with Error where the file has no place for it.
SpaceId add_block_records(Store& store, std::string_view name, Point base, Handle layout);
/// The block with its entities.
void erase_block_records(Store& store, SpaceId id);
/// In the records of the block alone.
void write_block_name(Store& store, SpaceId id, const std::string& name);
/// The row; none in R12.
RecordId block_row(const Store& store, SpaceId id);

}  // namespace velmar::drawing
