#include "drawing/extents.h"

#include <algorithm>
#include <limits>

#include "drawing/dimension/drawn_block.h"
#include "drawing/dimension/drawn_kinds.h"
#include "drawing/drawn_count.h"
#include "drawing/explode.h"
#include "drawing/geometry/ocs.h"

namespace velmar::drawing {
namespace {

// A drawing of blocks within blocks can describe far more entities than it has; beyond this it is
// refused.
constexpr int deepest_nesting = 64;
constexpr std::size_t most_visits = 4'000'000;
/// Before a walk goes on beyond so many, all that it would visit is counted.
constexpr std::size_t short_walk = 1000;

/// Visits an entity and, through block references, all that it draws, each body in world
/// coordinates.
template <class Visitor>
class Walk {
 public:
  Walk(const Drawing& drawing, Visitor& visitor) : drawing_(drawing), visitor_(visitor) {}

  void entity(RecordId id, const Matrix& place, bool moved, int depth) {
    if (depth == 0) start_ = id;
    if (++visits_ == short_walk) check_whole_walk();
    if (visits_ > most_visits) throw too_many();
    if (is_kept_dimension(drawing_.record(id).kind)) {
      const KeptDimension dimension = drawing_.read_kept_dimension(id);
      if (shown(id, dimension, place, depth)) return;
    }
    Body body = drawing_.read(id).body;
    if (const auto* insert = std::get_if<Insert>(&body))
      return reference(id, *insert, place, depth);
    if (const auto* dimension = std::get_if<Dimension>(&body))
      return drawn(id, *dimension, place, depth);
    if (!moved) return std::visit(visitor_, body);
    for (const Body& image : images(body, place)) std::visit(visitor_, image);
  }

 private:
  /// What a dimension shows: its block, else what it would.
  void drawn(RecordId id, const Dimension& dimension, const Matrix& place, int depth) {
    if (shown(id, dimension, place, depth)) return;
    for (const Entity& part : drawn_content(drawing_, id)) {
      for (const Body& image : images(part.body, place)) std::visit(visitor_, image);
    }
  }

  /// What the block of a dimension holds; false where it has none.
  bool shown(RecordId id, const auto& dimension, const Matrix& place, int depth) {
    const auto block = drawing_.find_space(dimension.block);
    if (!block || drawing_.spaces()[index(*block)].is_layout) return false;
    const Point offset = ocs_to_world(dimension.normal).direction(dimension.block_offset);
    const Matrix here = place * translation(offset);
    enter(id, *block, depth);
    for (const RecordId inner : drawing_.entities(*block)) entity(inner, here, true, depth + 1);
    within_.pop_back();
    return true;
  }

  void reference(RecordId id, const Insert& insert, const Matrix& place, int depth) {
    for (const RecordId attribute : drawing_.parts(id)) {
      entity(attribute, place, depth > 0, depth + 1);
    }
    const auto block = drawing_.find_space(insert.block);
    if (!block) return;
    const Space& space = drawing_.spaces()[index(*block)];
    std::vector<RecordId> content = drawing_.entities(*block);
    // What defines an attribute is not drawn with the reference; the attribute is.
    std::erase_if(content,
                  [&](RecordId inner) { return drawing_.record(inner).kind == Kind::attdef; });
    if (content.empty()) return;
    enter(id, *block, depth);
    for (int row = 0; row < insert.rows || row == 0; row = next_cell(row, insert.rows)) {
      for (int column = 0; column < insert.columns || column == 0;
           column = next_cell(column, insert.columns)) {
        const Matrix here = place * placement(insert, space.base, column, row);
        for (const RecordId inner : content) entity(inner, here, true, depth + 1);
      }
    }
    within_.pop_back();
  }

  /// Cells of an array stand in straight lines: none reaches farther than those at its corners.
  static int next_cell(int cell, int count) {
    if (Visitor::corners_tell_all && cell == 0 && count > 1) return count - 1;
    return cell + 1;
  }

  void enter(RecordId id, SpaceId block, int depth) {
    if (std::ranges::count(within_, block) > 0) {
      throw refused(id, "draws the block \"" + drawing_.spaces()[index(block)].name +
                            "\" within itself: take the reference out of the block");
    }
    if (depth > deepest_nesting) {
      throw refused(id, "stands in more than " + std::to_string(deepest_nesting) +
                            " blocks within each other: explode some of them");
    }
    within_.push_back(block);
  }

  void check_whole_walk() const {
    const int most_in_a_row = Visitor::corners_tell_all ? 2 : std::numeric_limits<int>::max();
    DrawnCount count(drawing_, {most_visits, deepest_nesting, most_in_a_row});
    if (count.of(start_) > most_visits) throw too_many();
  }

  Error too_many() const {
    return refused(start_, "draws more than " + std::to_string(most_visits) +
                               " entities through its blocks: explode or divide it");
  }

  Error refused(RecordId id, const std::string& what) const {
    const std::string file = drawing_.path().string();
    return Error((file.empty() ? "" : file + ": ") + std::string(drawing_.kind_name(id)) + " #" +
                 handle_text(drawing_.record(id).handle) + " " + what);
  }

  const Drawing& drawing_;
  Visitor& visitor_;
  std::size_t visits_ = 0;
  RecordId start_ = RecordId::none;
  std::vector<SpaceId> within_;
};

struct BoxOf {
  static constexpr bool corners_tell_all = true;
  Box box;
  template <class Shape>
  void operator()(const Shape& shape) {
    if constexpr (requires { extents(shape); }) box.add(extents(shape));
  }
};

struct OutlinesOf {
  static constexpr bool corners_tell_all = false;
  std::vector<std::vector<Point>> chains;
  template <class Shape>
  void operator()(const Shape& shape) {
    if constexpr (requires { outlines(shape); }) {
      for (auto& chain : outlines(shape)) chains.push_back(std::move(chain));
    } else if constexpr (requires { outline(shape); }) {
      if (auto chain = outline(shape); !chain.empty()) chains.push_back(std::move(chain));
    }
  }
};

template <class Visitor>
Visitor visited(const Drawing& drawing, RecordId id) {
  Visitor visitor;
  Walk<Visitor>(drawing, visitor).entity(id, Matrix{}, false, 0);
  return visitor;
}

}  // namespace

std::optional<Box> extents(const Drawing& drawing, RecordId id) {
  const Box box = visited<BoxOf>(drawing, id).box;
  if (box.empty()) return std::nullopt;
  return box;
}

std::vector<std::vector<Point>> outlines(const Drawing& drawing, RecordId id) {
  return visited<OutlinesOf>(drawing, id).chains;
}

}  // namespace velmar::drawing
