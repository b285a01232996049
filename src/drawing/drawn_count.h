#pragma once

#include <cstddef>
#include <map>

#include "drawing/drawing.h"

namespace velmar::drawing {

/// How many entities are drawn through blocks within blocks, each time that a block is drawn, told
/// without drawing them: forty blocks that each hold the next one twice draw 2^40. A block within
/// itself counts nothing.
class DrawnCount {
 public:
  struct Bounds {
    std::size_t enough;  // more than so many are one more
    int deepest;         // so many blocks within each other count
    int in_a_row;        // so many cells of a row or a column of an array count
  };

  DrawnCount(const Drawing& drawing, const Bounds& bounds) : drawing_(drawing), bounds_(bounds) {}

  std::size_t of(RecordId entity) { return of_entity(entity, 0); }

 private:
  std::size_t of_entity(RecordId id, int depth);
  std::size_t of_block(SpaceId block, int depth);

  const Drawing& drawing_;
  Bounds bounds_;
  std::map<SpaceId, std::size_t> counted_;
};

}  // namespace velmar::drawing
