#pragma once

#include <optional>
#include <vector>

#include "drawing/drawing.h"

namespace velmar::render {

/// Blocks within blocks farther down than this are neither drawn nor counted.
inline constexpr int deepest_nesting = 64;

/// How large things are, without walking through what blocks are made of each time.
class BlockSizes {
 public:
  explicit BlockSizes(const drawing::Drawing& drawing);

  /// A box that surely holds what an entity draws, in its own coordinates; empty where it draws
  /// nothing, or without end.
  drawing::Box entity_box(drawing::RecordId id);
  /// The same of a block's content. What a block holds of itself counts nothing.
  drawing::Box block_box(drawing::SpaceId block);
  /// Of a reference, all its rows and columns.
  drawing::Box reference_box(const drawing::Insert& insert);

 private:
  enum class State : char { unknown, being_found, known };

  const drawing::Drawing& drawing_;
  int depth_ = 0;
  std::vector<State> states_;
  std::vector<drawing::Box> boxes_;
};

/// The block that a reference or dimension shows; nothing for sheets and names of nothing.
std::optional<drawing::SpaceId> shown_block(const drawing::Drawing& drawing,
                                            const std::string& name);
/// Eight corners.
std::vector<drawing::Point> corners(const drawing::Box& box);

}  // namespace velmar::render
