#pragma once

#include <cstdint>

namespace velmar::drawing {

/// The colour of an index, 0xRRGGBB; by layer and by block are white.
std::int32_t rgb_of_index(std::int32_t index);
/// The index from 1 to 255 whose colour is nearest.
std::int32_t nearest_index(std::int32_t rgb);

}  // namespace velmar::drawing
