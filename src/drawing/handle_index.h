#pragma once

#include <cstdint>
#include <vector>

#include "drawing/record.h"

namespace velmar::drawing {

struct HandleIndex {
  std::vector<std::uint32_t>
      order;  // positions of the records that have handles, in the order of these
  std::vector<std::uint32_t>
      duplicates;  // records whose handle an earlier record has; not in `order`
};

/// Linear in the records. Of equal handles the first record has it.
HandleIndex index_handles(const std::vector<Record>& records);

}  // namespace velmar::drawing
