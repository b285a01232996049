#include "drawing/drawn_count.h"

#include <algorithm>

#include "drawing/dimension/drawn_kinds.h"

namespace velmar::drawing {

std::size_t DrawnCount::of_entity(RecordId id, int depth) {
  const Kind kind = drawing_.record(id).kind;
  if (kind != Kind::insert && !shows_drawn_block(kind)) return 1;
  const Body body = drawing_.read_body(id);
  const auto* const insert = std::get_if<Insert>(&body);
  const auto* const dimension = std::get_if<Dimension>(&body);
  const auto block = drawing_.find_space(insert      ? insert->block
                                         : dimension ? dimension->block
                                                     : drawing_.read_kept_dimension(id).block);
  if (!block || depth >= bounds_.deepest) return 1;
  const auto cells = [&](int count) {
    return static_cast<double>(std::clamp(count, 1, bounds_.in_a_row));
  };
  const double times = insert ? cells(insert->rows) * cells(insert->columns) : 1;
  const double all = times * static_cast<double>(of_block(*block, depth + 1)) + 1;
  return all > static_cast<double>(bounds_.enough) ? bounds_.enough + 1
                                                   : static_cast<std::size_t>(all);
}

std::size_t DrawnCount::of_block(SpaceId block, int depth) {
  const auto [known, is_new] = counted_.try_emplace(block, 0);
  if (!is_new) return known->second;
  std::size_t count = 0;
  for (const RecordId id : drawing_.entities(block)) {
    count += of_entity(id, depth);
    if (count > bounds_.enough) break;
  }
  return known->second = std::min(count, bounds_.enough + 1);
}

}  // namespace velmar::drawing
