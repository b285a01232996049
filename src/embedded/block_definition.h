#pragma once

#include "embedded/block_object.h"

namespace velmar::embedded {

// What changes a block definition as a whole. Layouts, anonymous blocks and external references are
// refused (invalid input), where nothing else is said.

void rename_block(BlockObject& block, const Value& value);
/// Of any block.
void put_origin(BlockObject& block, const Value& value);
/// Refused while anything refers to it.
void delete_block(BlockObject& block);
/// Refuses (invalid input) a block that would contain itself.
void require_no_cycle(const drawing::Drawing& drawing, drawing::SpaceId into,
                      drawing::SpaceId inserted);

}  // namespace velmar::embedded
