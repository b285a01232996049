#include <array>

#include "basic/conversion.h"
#include "drawing/hatch_boundary.h"
#include "drawing/hatch_lines.h"
#include "embedded/entity_members.h"
#include "embedded/errors.h"
#include "embedded/hatch_patterns.h"
#include "embedded/objects.h"

namespace velmar::embedded {
namespace {

using drawing::Hatch;
using drawing::HatchLoop;
using drawing::RecordId;

const Hatch& hatch_of(const EntityObject& entity) { return std::get<Hatch>(entity.body()); }

/// The entities of a list, all of them in the block of the hatch.
std::vector<RecordId> boundary(const EntityObject& hatch, const Arguments& arguments,
                               std::size_t i) {
  const auto* list = arguments[i].if_is<basic::List>();
  if (!list) throw invalid_argument("ObjectList", arguments.method());
  std::vector<RecordId> ids;
  for (const Value& item : *list) {
    const auto* reference = item.if_is<basic::Reference>();
    const auto* entity = reference ? dynamic_cast<EntityObject*>(reference->get()) : nullptr;
    if (!entity) throw invalid_argument("ObjectList", arguments.method());
    const bool same_block =
        entity->document() == hatch.document() && entity->record().space == hatch.record().space;
    if (entity->record().is(drawing::Record::erased)) throw failure(HostError::was_erased);
    if (!same_block) throw failure(HostError::invalid_input);
    ids.push_back(entity->id());
  }
  return ids;
}

HatchLoop loop_of(const EntityObject& entity, const std::vector<RecordId>& ids,
                  std::int32_t flags) {
  std::vector<drawing::Body> bodies;
  for (const RecordId id : ids) bodies.push_back(entity.drawing().read_body(id));
  const Hatch& hatch = hatch_of(entity);
  auto loop = drawing::boundary_loop(bodies, hatch);
  if (!loop) throw failure(HostError::invalid_input);
  loop->flags |= flags;
  if (hatch.associative == 0) return *loop;
  for (const RecordId id : ids) {
    loop->sources.push_back(drawing::handle_text(entity.drawing().record(id).handle));
  }
  return *loop;
}

/// All or nothing: what makes no loop in the plane of the hatch leaves it as it was.
Value insert_loop(EntityObject& entity, const Arguments& arguments, std::size_t list,
                  std::size_t at, std::int32_t flags) {
  const std::vector<RecordId> ids = boundary(entity, arguments, list);
  Hatch hatch = hatch_of(entity);
  HatchLoop loop = loop_of(entity, ids, flags);
  hatch.loops.insert(hatch.loops.begin() + static_cast<std::ptrdiff_t>(at), std::move(loop));
  entity.drawing().write_body(entity.id(), hatch);
  if (hatch.associative == 0) return {};
  for (const RecordId id : ids) entity.drawing().add_reactor(id, entity.record().handle);
  return {};
}

/// The outer loop goes before inner ones.
Value append_outer_loop(EntityObject& entity, Arguments& arguments) {
  const std::size_t end = hatch_of(entity).loops.size();
  return insert_loop(entity, arguments, 0, end, HatchLoop::external_flag);
}

Value append_inner_loop(EntityObject& entity, Arguments& arguments) {
  const std::size_t end = hatch_of(entity).loops.size();
  if (end == 0) throw failure(HostError::invalid_input);
  return insert_loop(entity, arguments, 0, end, 0);
}

Value insert_loop_at(EntityObject& entity, Arguments& arguments) {
  const std::size_t at = arguments.index(0, hatch_of(entity).loops.size() + 1);
  const std::int32_t type = arguments.integer(1);
  constexpr std::int32_t polyline = HatchLoop::polyline_flag, highest_type = 31;
  if (type < 0 || type > highest_type) throw failure(HostError::invalid_input);
  return insert_loop(entity, arguments, 2, at, type & ~polyline);
}

/// The entities that the loop was made from, as far as they are there still; a hatch that is not
/// associative does not know them.
Value get_loop_at(EntityObject& entity, Arguments& arguments) {
  const Hatch& hatch = hatch_of(entity);
  basic::List objects;
  for (const std::string& source : hatch.loops[arguments.index(0, hatch.loops.size())].sources) {
    const RecordId id = entity.drawing().find(drawing::parse_handle(source));
    const bool is_there =
        id != RecordId::none && !entity.drawing().record(id).is(drawing::Record::erased);
    if (is_there) objects.emplace_back(make_object(entity.document(), id));
  }
  arguments.give(1, std::move(objects));
  return {};
}

/// The lines are there already; this refuses what would have too many.
Value evaluate(EntityObject& entity, Arguments&) {
  const Hatch& hatch = hatch_of(entity);
  if (hatch.loops.empty()) throw failure(HostError::invalid_input);
  drawing::hatch_lines(hatch);
  return {};
}

Value set_pattern(EntityObject& entity, Arguments& arguments) {
  Hatch hatch = hatch_of(entity);
  choose_pattern(hatch, entity.drawing(), arguments.integer(0), arguments.text(1));
  entity.drawing().write_body(entity.id(), hatch);
  return {};
}

constexpr std::array hatch_method_rows{
    EntityMethod{Member::AppendOuterLoop, Effect::changes, 1, 1, append_outer_loop},
    EntityMethod{Member::AppendInnerLoop, Effect::changes, 1, 1, append_inner_loop},
    EntityMethod{Member::InsertLoopAt, Effect::changes, 3, 3, insert_loop_at},
    EntityMethod{Member::GetLoopAt, Effect::reads, 2, 2, get_loop_at},
    EntityMethod{Member::Evaluate, Effect::changes, 0, 0, evaluate},
    EntityMethod{Member::SetPattern, Effect::changes, 2, 2, set_pattern},
};

Value get_associative(const EntityObject& entity) { return hatch_of(entity).associative != 0; }

/// A hatch that does not know what it was made from cannot begin to follow it.
void put_associative(EntityObject& entity, const Value& value) {
  const bool wanted = basic::convert<bool>(value);
  Hatch hatch = hatch_of(entity);
  if (wanted == (hatch.associative != 0)) return;
  if (wanted && !hatch.loops.empty()) throw failure(HostError::invalid_input);
  const std::vector<HatchLoop> loops = hatch.loops;
  detach(hatch);
  hatch.associative = wanted ? 1 : 0;
  entity.drawing().write_body(entity.id(), hatch);
  for (const HatchLoop& loop : loops) {
    for (const std::string& source : loop.sources) {
      const RecordId id = entity.drawing().find(drawing::parse_handle(source));
      if (id != RecordId::none) entity.drawing().remove_reactor(id, entity.record().handle);
    }
  }
}

constexpr std::array hatch_property_rows{
    EntityProperty{Member::AssociativeHatch, get_associative, put_associative},
};

}  // namespace

std::span<const EntityMethod> hatch_methods() { return hatch_method_rows; }
std::span<const EntityProperty> hatch_properties() { return hatch_property_rows; }

}  // namespace velmar::embedded
