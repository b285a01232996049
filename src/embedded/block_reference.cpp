#include "embedded/block_reference.h"

#include <array>

#include "basic/strings.h"
#include "embedded/entity_members.h"
#include "embedded/errors.h"
#include "embedded/xdata.h"

namespace velmar::embedded {
namespace {

using drawing::Drawing;
using drawing::RecordId;
using drawing::Space;

/// The block that an anonymous block of a dynamic reference was made from: the block record names
/// its handle in the extended data of AcDbBlockRepBTag.
const Space* made_from(const Drawing& drawing, const Space& block) {
  const RecordId record = drawing.find(block.owner);
  if (record == RecordId::none) return nullptr;
  for (const Value& value : read_xdata(drawing, record, "AcDbBlockRepBTag").values) {
    const auto* text = value.if_is<std::string>();
    const drawing::Handle owner = text ? drawing::parse_handle(*text) : 0;
    if (owner == 0) continue;
    for (const Space& space : drawing.spaces()) {
      if (space.owner == owner) return &space;
    }
  }
  return nullptr;
}

Value effective_name(const EntityObject& entity) {
  const Space* block = definition(entity);
  const Space* original =
      block && block->name.starts_with("*U") ? made_from(entity.drawing(), *block) : nullptr;
  return original ? original->name : std::get<drawing::Insert>(entity.body()).block;
}

/// Of an external reference alone.
Value path(const EntityObject& entity) {
  const Space* block = definition(entity);
  if (!block || !block->is_xref()) throw no_such_member(Member::Path);
  return block->path;
}

Value has_attributes(const EntityObject& entity) {
  return !entity.drawing().parts(entity.id()).empty();
}

Value get_attributes(EntityObject& entity, Arguments&) {
  basic::List attributes;
  for (const RecordId part : entity.drawing().parts(entity.id())) {
    attributes.emplace_back(make_entity(entity.document(), part));
  }
  return attributes;
}

/// Those that are the same in every reference: the definitions themselves.
Value get_constant_attributes(EntityObject& entity, Arguments&) {
  constexpr std::int32_t constant = 2;
  const Drawing& drawing = entity.drawing();
  const auto block = drawing.find_space(std::get<drawing::Insert>(entity.body()).block);
  basic::List constants;
  if (!block) return constants;
  for (const RecordId id : drawing.entities(*block)) {
    if (drawing.record(id).kind != drawing::Kind::attdef) continue;
    const auto definition = std::get<drawing::Attdef>(drawing.read_body(id));
    const bool is_constant = (definition.flags & constant) != 0;
    if (is_constant) constants.emplace_back(make_entity(entity.document(), id));
  }
  return constants;
}

constexpr std::array block_reference_properties{
    EntityProperty{Member::EffectiveName, effective_name},
    EntityProperty{Member::Path, path},
    EntityProperty{Member::HasAttributes, has_attributes},
};

constexpr std::array block_reference_methods{
    EntityMethod{Member::GetAttributes, Effect::reads, 0, 0, get_attributes},
    EntityMethod{Member::GetConstantAttributes, Effect::reads, 0, 0, get_constant_attributes},
};

}  // namespace

const Space* definition(const EntityObject& entity) {
  const auto& insert = std::get<drawing::Insert>(entity.body());
  const auto found = entity.drawing().find_space(insert.block);
  return found ? &entity.drawing().spaces()[index(*found)] : nullptr;
}

std::span<const EntityProperty> reference_properties() { return block_reference_properties; }
std::span<const EntityMethod> reference_methods() { return block_reference_methods; }

}  // namespace velmar::embedded
