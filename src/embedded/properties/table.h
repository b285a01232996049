#pragma once

#include <algorithm>
#include <cstddef>
#include <span>

#include "embedded/arguments.h"

namespace velmar::embedded {

/// A row of a property table: how a property that is no plain field is read and written.
template <class Subject>
struct Property {
  Member member;
  Value (*get)(const Subject&);
  void (*put)(Subject&, const Value&) = nullptr;  // none: read only
};

enum class Effect { reads, changes };

/// A row of a method table. `changes`: refused on a locked layer; what it does to an entity's body
/// is written to the drawing.
template <class Subject>
struct Method {
  Member member;
  Effect effect;
  std::size_t required, at_most;  // arguments
  Value (*call)(Subject&, Arguments&);
};

/// The row of that member, or null.
template <class Row>
const Row* find_row(std::span<const Row> rows, Member member) {
  const auto found = std::ranges::find(rows, member, &Row::member);
  return found == rows.end() ? nullptr : &*found;
}

}  // namespace velmar::embedded
