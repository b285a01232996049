#include "render/block_sizes.h"

#include "drawing/dimension/drawn_block.h"
#include "drawing/geometry/ocs.h"
#include "render/kept_kinds.h"
#include "render/texts.h"

namespace velmar::render {
namespace {

using drawing::Box;
using drawing::Point;

void add(Box& box, const std::vector<Point>& points) {
  for (const Point& p : points) box.add(p);
}

void add(Box& box, const Box& inner, const drawing::Matrix& place) {
  if (inner.empty()) return;
  for (const Point& p : corners(inner)) box.add(place(p));
}

Box shape_box(const drawing::Body& body) {
  Box box;
  std::visit(
      [&](const auto& shape) {
        if constexpr (requires { extents(shape); }) box = extents(shape);
      },
      body);
  return box;
}

Box box_of_kept(const KeptShape& shape, BlockSizes& sizes) {
  Box box;
  for (const auto* chains : {&shape.lines, &shape.areas, &shape.masks}) {
    for (const Chain& chain : *chains) add(box, chain);
  }
  for (const drawing::MText& text : shape.texts) box.add(extents(text));
  if (shape.block) box.add(sizes.reference_box(*shape.block));
  return box;
}

}  // namespace

std::vector<Point> corners(const Box& box) {
  std::vector<Point> points;
  for (const double x : {box.min.x, box.max.x}) {
    for (const double y : {box.min.y, box.max.y}) {
      for (const double z : {box.min.z, box.max.z}) points.push_back({x, y, z});
    }
  }
  return points;
}

std::optional<drawing::SpaceId> shown_block(const drawing::Drawing& drawing,
                                            const std::string& name) {
  const auto block = drawing.find_space(name);
  if (!block || drawing.spaces()[index(*block)].is_layout) return std::nullopt;
  return block;
}

BlockSizes::BlockSizes(const drawing::Drawing& drawing)
    : drawing_(drawing), states_(drawing.spaces().size()), boxes_(drawing.spaces().size()) {}

Box BlockSizes::block_box(drawing::SpaceId block) {
  const std::size_t at = index(block);
  if (states_[at] == State::unknown && depth_ < deepest_nesting) {
    ++depth_;
    states_[at] = State::being_found;
    Box box;
    for (const drawing::RecordId id : drawing_.entities(block)) {
      if (drawing_.record(id).kind != drawing::Kind::attdef) box.add(entity_box(id));
    }
    boxes_[at] = box;
    states_[at] = State::known;
    --depth_;
  }
  return states_[at] == State::known ? boxes_[at] : Box{};
}

Box BlockSizes::reference_box(const drawing::Insert& insert) {
  Box box;
  const auto block = shown_block(drawing_, insert.block);
  if (!block) return box;
  const Box inner = block_box(*block);
  const Point base = drawing_.spaces()[index(*block)].base;
  for (const int row : {0, std::max(insert.rows, 1) - 1}) {
    for (const int column : {0, std::max(insert.columns, 1) - 1}) {
      add(box, inner, placement(insert, base, column, row));
    }
  }
  return box;
}

Box BlockSizes::entity_box(drawing::RecordId id) try {
  if (const auto kept = kept_shape(drawing_, id)) return box_of_kept(*kept, *this);
  const drawing::Body body = drawing_.read_body(id);
  Box box;
  if (const auto* const insert = std::get_if<drawing::Insert>(&body)) {
    box = reference_box(*insert);
    const Point first = placement(*insert, Point{})(Point{});
    const int last_row = std::max(insert->rows, 1) - 1, last = std::max(insert->columns, 1) - 1;
    const Point shift = placement(*insert, Point{}, last, last_row)(Point{}) - first;
    for (const drawing::RecordId part : drawing_.parts(id)) {
      const Box attribute = entity_box(part);
      add(box, attribute, drawing::Matrix{});
      add(box, attribute, drawing::translation(shift));
    }
  } else if (const auto* const dimension = std::get_if<drawing::Dimension>(&body)) {
    const auto block = shown_block(drawing_, dimension->block);
    const Point offset =
        drawing::ocs_to_world(dimension->normal).direction(dimension->block_offset);
    if (block) {
      add(box, block_box(*block), drawing::translation(offset));
    } else {
      for (const drawing::Entity& part : drawing::drawn_content(drawing_, id)) {
        box.add(shape_box(part.body));
      }
    }
  } else if (const auto* const definition = std::get_if<drawing::Attdef>(&body)) {
    box = extents(shown_tag(*definition));
  } else if (const auto* const spline = std::get_if<drawing::Spline>(&body)) {
    box = extents(*spline);
    if (box.empty()) add(box, spline->fit_points);
  } else {
    box = shape_box(body);
  }
  return box;
} catch (const drawing::Error&) {
  return {};  // told when it is drawn
}

}  // namespace velmar::render
