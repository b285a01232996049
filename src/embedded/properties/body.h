#pragma once

#include <optional>
#include <span>

#include "drawing/drawing.h"
#include "embedded/properties/table.h"

namespace velmar::embedded {

// The members that an entity has by its kind: rows of kinds.h, then the fields of its list.

/// Nothing where the kind has no such property.
std::optional<Value> get_property(const drawing::Body& body, Member member);
/// False where the kind has no such property; fails with 438 where it is read only.
bool put_property(const drawing::Drawing& drawing, drawing::Body& body, Member member,
                  const Value& value);
/// What the kind's method of that name does when it is given so many arguments; nothing where it
/// has none.
std::optional<Effect> method_effect(const drawing::Body& body, Member member,
                                    std::size_t arguments);
/// Only where method_effect found one.
Value call_method(drawing::Body& body, Member member, std::span<Value> arguments);

}  // namespace velmar::embedded
