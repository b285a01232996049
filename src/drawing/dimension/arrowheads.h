#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "drawing/drawing.h"

namespace velmar::drawing {

/// A mark at the end of a dimension line that every drawing may use, under the name of its block.
struct Arrowhead {
  std::string_view block;  // empty: closed and filled, drawn without a block
  double trim;             // how much of the dimension line it covers, in arrow sizes
};

/// By their numbers in the automation model, from 0 on.
inline constexpr std::int32_t arrowhead_count = 20, arrowhead_of_user = 20;
const Arrowhead& arrowhead(std::int32_t number);
/// The number of a block's name; that of the user's own blocks for others.
std::int32_t arrowhead_number(std::string_view block);
/// Of the user's own blocks the whole.
double arrowhead_trim(std::string_view block);

/// The block that shows an arrowhead: the drawing's own of that name, else a well-known one. Empty
/// for the closed and filled one, which is also drawn where there is no such block.
std::string arrow_block(const Drawing& drawing, const std::string& name);
/// Adds the block of a well-known arrowhead where the drawing does not have it.
void require_arrow_block(Drawing& drawing, std::string_view block);

}  // namespace velmar::drawing
