#include <array>
#include <cmath>

#include "basic/strings.h"
#include "drawing/dimension/drawn_block.h"
#include "drawing/explode.h"
#include "embedded/block_reference.h"
#include "embedded/entity_members.h"
#include "embedded/errors.h"

namespace velmar::embedded {
namespace {

using drawing::Body;
using drawing::Common;
using drawing::Drawing;
using drawing::Insert;
using drawing::Matrix;
using drawing::RecordId;
using drawing::Space;
using drawing::SpaceId;

constexpr std::size_t most_entities = 100'000;

Value explode_polyline(EntityObject& entity, Arguments&) {
  const Body& body = entity.body();
  const auto* heavy = std::get_if<drawing::Polyline>(&body);
  constexpr std::int32_t mesh = drawing::Polyline::mesh_flag | drawing::Polyline::polyface_flag;
  if (heavy && (heavy->flags & mesh) != 0) throw not_supported("Explode of a mesh");
  const auto segments =
      heavy ? drawing::explode(*heavy) : drawing::explode(std::get<drawing::LwPolyline>(body));
  const Common common = entity.drawing().read_common(entity.id());
  const SpaceId space = entity.record().space;
  basic::List added;
  for (const Body& segment : segments) {
    const RecordId id = entity.drawing().add(space, {common, segment});
    added.emplace_back(make_entity(entity.document(), id));
  }
  return added;
}

/// What an entity of a block gets from the reference that shows it.
Common shown_by(const Common& reference, Common own) {
  constexpr std::int32_t color_by_block = 0, lineweight_by_block = -2;
  if (own.layer == "0") own.layer = reference.layer;
  if (own.color == color_by_block && own.true_color < 0) {
    own.color = reference.color;
    own.true_color = reference.true_color;
  }
  if (basic::equal_ignoring_case(own.linetype, "ByBlock")) own.linetype = reference.linetype;
  if (own.lineweight == lineweight_by_block) own.lineweight = reference.lineweight;
  return own;
}

/// What an entity of the block becomes: a copy with another body, or entities of other kinds.
struct Successor {
  RecordId original;
  Matrix place;
  std::vector<Body> bodies;
};

/// An entity of the block in one cell of the reference; refuses what cannot be placed there.
Successor successor(const Drawing& drawing, RecordId original, const Matrix& place) {
  Successor result{original, place, images(drawing.read_body(original), place)};
  const std::string kind(drawing.kind_name(original));
  if (result.bodies.empty()) {
    const bool is_reference = drawing.record(original).kind == drawing::Kind::insert;
    throw not_supported("Explode of INSERT that " +
                        (is_reference ? "makes a block reference oblique" : "moves " + kind));
  }
  const bool is_r12 = drawing.version() < "AC1012";
  const bool to_ellipse = std::ranges::any_of(result.bodies, [](const Body& body) {
    return std::holds_alternative<drawing::Ellipse>(body);
  });
  if (is_r12 && to_ellipse) {
    throw not_supported("Explode of INSERT that makes an ellipse of " + kind + ", in R12,");
  }
  return result;
}

/// Everything that the reference shows, in every cell.
std::vector<Successor> successors(const Drawing& drawing, const Insert& insert, const Space& block,
                                  const std::vector<RecordId>& content) {
  const int columns = std::max(insert.columns, 1), rows = std::max(insert.rows, 1);
  const auto cells = static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows);
  std::vector<Successor> result;
  if (content.empty()) return result;
  if (cells > most_entities / content.size()) throw failure(HostError::invalid_input);
  for (int row = 0; row < rows; ++row) {
    for (int column = 0; column < columns; ++column) {
      const Matrix place = placement(insert, block.base, column, row);
      const double volume = std::abs(determinant(place));
      if (!(volume > 0) || !std::isfinite(volume)) throw failure(HostError::invalid_input);
      for (const RecordId id : content) result.push_back(successor(drawing, id, place));
    }
  }
  return result;
}

/// The copy in the space of the reference, with its attributes where it is a reference itself.
RecordId add_copy(Drawing& drawing, const Successor& from, SpaceId space, const Common& reference) {
  const RecordId copy = drawing.copy_to(from.original, space);
  if (drawing.record(copy).kind == drawing::Kind::dimension) {
    drawing.write_common(copy, shown_by(reference, drawing.read_common(copy)));
    transform_dimension(drawing, copy, from.place);
    return copy;
  }
  drawing.write(copy, {shown_by(reference, drawing.read_common(copy)), from.bodies.front()});
  if (drawing.record(copy).kind != drawing::Kind::insert) return copy;
  for (const RecordId part : drawing.parts(copy)) {
    drawing::Entity attribute = drawing.read(part);
    transform(std::get<drawing::Attrib>(attribute.body), from.place);
    drawing.write(part, {shown_by(reference, attribute.common), attribute.body});
  }
  return copy;
}

/// An external reference stays what it is: nothing is added.
Value explode_reference(EntityObject& entity, Arguments&) {
  Drawing& drawing = entity.drawing();
  const Space* block = definition(entity);
  basic::List added;
  if (!block || block->is_xref()) return added;
  const auto insert = std::get<Insert>(entity.body());
  const auto content = drawing.entities(*drawing.find_space(insert.block));
  const Common reference = drawing.read_common(entity.id());
  const SpaceId space = entity.record().space;
  for (const Successor& next : successors(drawing, insert, *block, content)) {
    const bool same_kind = next.bodies.size() == 1 &&
                           next.bodies.front().index() == drawing.read_body(next.original).index();
    if (same_kind) {
      added.emplace_back(make_entity(entity.document(), add_copy(drawing, next, space, reference)));
      continue;
    }
    const Common common = shown_by(reference, drawing.read_common(next.original));
    for (const Body& body : next.bodies) {
      added.emplace_back(make_entity(entity.document(), drawing.add(space, {common, body})));
    }
  }
  return added;
}

constexpr std::array polyline_rows{
    EntityMethod{Member::Explode, Effect::reads, 0, 0, explode_polyline},
};
constexpr std::array reference_rows{
    EntityMethod{Member::Explode, Effect::reads, 0, 0, explode_reference},
};

}  // namespace

std::span<const EntityMethod> polyline_explosion() { return polyline_rows; }
std::span<const EntityMethod> reference_explosion() { return reference_rows; }

}  // namespace velmar::embedded
