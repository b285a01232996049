#pragma once

#include <span>

#include "embedded/block_object.h"
#include "embedded/properties/table.h"

namespace velmar::embedded {

/// InsertBlock, AttachExternalReference, AddAttribute.
std::span<const Method<BlockObject>> insertions();

}  // namespace velmar::embedded
