#pragma once

#include "embedded/entity_object.h"

namespace velmar::embedded {

/// The block that a block reference shows; null where the drawing has none of that name.
const drawing::Space* definition(const EntityObject& reference);

}  // namespace velmar::embedded
