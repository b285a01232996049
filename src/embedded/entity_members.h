#pragma once

#include <span>

#include "drawing/kind.h"
#include "embedded/entity_object.h"
#include "embedded/properties/table.h"

namespace velmar::embedded {

using EntityProperty = Property<EntityObject>;
using EntityMethod = Method<EntityObject>;

/// The row of a member that entities have beside those of their kind's body; null where there is
/// none.
const EntityProperty* find_entity_property(drawing::Kind kind, Member member);
const EntityMethod* find_entity_method(drawing::Kind kind, Member member);

// The tables, one a file.
std::span<const EntityProperty> entity_properties();          // entity_properties.cpp: every entity
std::span<const EntityProperty> reference_properties();       // block_reference.cpp: INSERT alone
std::span<const EntityProperty> dimension_properties();       // dimension_properties.cpp
std::span<const EntityProperty> kept_dimension_properties();  // dimension_properties.cpp
std::span<const EntityMethod> reference_methods();            // the same
std::span<const EntityProperty> tolerance_properties();       // properties/tolerance.cpp
std::span<const EntityProperty> hatch_properties();           // hatches.cpp: HATCH alone
std::span<const EntityMethod> hatch_methods();                // the same
std::span<const EntityMethod> movement_methods();             // movement.cpp
std::span<const EntityMethod> copy_methods();                 // copies.cpp
std::span<const EntityMethod> offset_methods();               // offsets.cpp: kinds that have Offset
std::span<const EntityMethod> object_methods();       // object_methods.cpp: Delete, boxes, data
std::span<const EntityMethod> polyline_explosion();   // explosion.cpp: polylines alone
std::span<const EntityMethod> reference_explosion();  // the same: INSERT alone

}  // namespace velmar::embedded
