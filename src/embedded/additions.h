#pragma once

#include <span>

#include "embedded/block_object.h"
#include "embedded/properties/table.h"

namespace velmar::embedded {

/// AddLine and its like. New entities take the drawing's current layer, colour, linetype, linetype
/// scale, elevation and text style.
std::span<const Method<BlockObject>> additions();

/// Adds a linear dimension, whose line goes through its definition point, and draws it.
drawing::RecordId add_dimension(DocumentState& document, drawing::SpaceId space,
                                drawing::Dimension dimension);

}  // namespace velmar::embedded
