#include "drawing/extents.h"

#include "drawing/dimension/drawn_block.h"
#include "drawing/explode.h"
#include "drawing/geometry/ocs.h"

namespace velmar::drawing {
namespace {

// A drawing of blocks within blocks can describe far more entities than it has; beyond this it is
// refused.
constexpr int deepest_nesting = 64;
constexpr std::size_t most_visits = 4'000'000;

/// Visits an entity and, through block references, all that it draws, each body in world
/// coordinates.
template <class Visitor>
class Walk {
 public:
  Walk(const Drawing& drawing, Visitor& visitor) : drawing_(drawing), visitor_(visitor) {}

  void entity(RecordId id, const Matrix& place, bool moved, int depth) {
    if (++visits_ > most_visits) throw nested(id, "draws too many entities through its blocks");
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
    if (depth > deepest_nesting) throw nested(id, "is nested too deeply, perhaps in itself");
    const auto block = drawing_.find_space(dimension.block);
    if (!block || drawing_.spaces()[index(*block)].is_layout) {
      for (const Entity& part : drawn_content(drawing_, id)) {
        for (const Body& image : images(part.body, place)) std::visit(visitor_, image);
      }
      return;
    }
    const Point offset = ocs_to_world(dimension.normal).direction(dimension.block_offset);
    const Matrix here = place * translation(offset);
    for (const RecordId inner : drawing_.entities(*block)) entity(inner, here, true, depth + 1);
  }

  void reference(RecordId id, const Insert& insert, const Matrix& place, int depth) {
    if (depth > deepest_nesting) throw nested(id, "is nested too deeply, perhaps in itself");
    for (const RecordId attribute : drawing_.parts(id)) {
      entity(attribute, place, depth > 0, depth + 1);
    }
    const auto block = drawing_.find_space(insert.block);
    if (!block) return;
    const Space& space = drawing_.spaces()[index(*block)];
    const std::vector<RecordId> content = drawing_.entities(*block);
    if (content.empty()) return;
    for (int row = 0; row < std::max(insert.rows, 1); ++row) {
      for (int column = 0; column < std::max(insert.columns, 1); ++column) {
        const Matrix here = place * placement(insert, space.base, column, row);
        for (const RecordId inner : content) {
          // What defines an attribute is not drawn with the reference; the attribute is.
          if (drawing_.record(inner).kind != Kind::attdef) entity(inner, here, true, depth + 1);
        }
      }
    }
  }

  Error nested(RecordId id, const std::string& what) const {
    return Error(std::string(drawing_.kind_name(id)) + " #" +
                 handle_text(drawing_.record(id).handle) + " " + what);
  }

  const Drawing& drawing_;
  Visitor& visitor_;
  std::size_t visits_ = 0;
};

struct BoxOf {
  Box box;
  template <class Shape>
  void operator()(const Shape& shape) {
    if constexpr (requires { extents(shape); }) box.add(extents(shape));
  }
};

struct OutlinesOf {
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
