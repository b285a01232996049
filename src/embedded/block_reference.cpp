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

const Space* definition(const EntityObject& entity) {
  const auto& insert = std::get<drawing::Insert>(entity.body());
  const auto found = entity.drawing().find_space(insert.block);
  return found ? &entity.drawing().spaces()[index(*found)] : nullptr;
}

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

Value get_constant_attributes(EntityObject& entity, Arguments&) {
  const Drawing& drawing = entity.drawing();
  const Space* block = definition(entity);
  if (!block) return basic::List{};
  for (const RecordId id : block->entities) {
    const drawing::Record& record = drawing.record(id);
    if (record.kind == drawing::Kind::attdef && !record.is(drawing::Record::erased)) {
      throw not_supported("GetConstantAttributes of a block with attribute definitions");
    }
  }
  return basic::List{};
}

Value explode(EntityObject&, Arguments&) { throw not_supported("Explode of INSERT"); }

constexpr std::array property_rows{
    EntityProperty{Member::EffectiveName, effective_name},
    EntityProperty{Member::Path, path},
    EntityProperty{Member::HasAttributes, has_attributes},
};

constexpr std::array method_rows{
    EntityMethod{Member::GetAttributes, Effect::reads, 0, 0, get_attributes},
    EntityMethod{Member::GetConstantAttributes, Effect::reads, 0, 0, get_constant_attributes},
    EntityMethod{Member::Explode, Effect::reads, 0, 0, explode},
};

}  // namespace

std::span<const EntityProperty> reference_properties() { return property_rows; }
std::span<const EntityMethod> reference_methods() { return method_rows; }

}  // namespace velmar::embedded
