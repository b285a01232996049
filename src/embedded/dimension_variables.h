#pragma once

#include <optional>

#include "embedded/entity_object.h"

namespace velmar::embedded {

// The members of a dimension that come from dimension variables: an override of its own, else its
// style, else the default. A put is written as an override, and a linear dimension is drawn anew.

/// Nothing where there is no such member.
std::optional<Value> get_dimension_variable(const EntityObject& dimension, Member member);
/// False where there is no such member.
bool put_dimension_variable(EntityObject& dimension, Member member, const Value& value);

}  // namespace velmar::embedded
