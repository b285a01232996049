#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "drawing/drawing.h"

namespace velmar::drawing {

/// One value of an entity that differs; empty where one side does not have it.
struct ValueDifference {
  int code = 0;
  std::string a, b;
};

/// What differs: something of the one drawing, of the other, or of both with other values.
struct Difference {
  enum class Kind { removed, added, changed };

  Kind kind;
  std::string what;   // "LINE", "LAYER"
  std::string space;  // of an entity: the block it is in
  std::string name;   // of a layer
  RecordId a = RecordId::none, b = RecordId::none;
  std::vector<ValueDifference> values;  // of changed ones
};

struct Comparison {
  std::vector<Difference> differences;  // layers, then entities, in the drawings' order
  std::size_t same = 0;                 // entities that do not differ
};

/// Compares layers, and the entities of all spaces: those of the same handle and kind with each
/// other, and of the rest those that have the same content. Handles, owners and reactors are no
/// content. Real numbers at most `tolerance` apart are the same. Linear but for sorting.
Comparison compare(const Drawing& a, const Drawing& b, double tolerance);

}  // namespace velmar::drawing
