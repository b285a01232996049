#include "embedded/insertions.h"

#include <array>

#include "basic/conversion.h"
#include "embedded/block_definition.h"
#include "embedded/current_style.h"
#include "embedded/entity_object.h"
#include "embedded/errors.h"
#include "embedded/external_reference.h"
#include "embedded/names.h"
#include "embedded/properties/checks.h"

namespace velmar::embedded {
namespace {

using drawing::Attdef;
using drawing::Attrib;
using drawing::Drawing;
using drawing::RecordId;
using drawing::SpaceId;

/// The attributes that a reference begins with: the definitions of its block as they stand there.
/// Constant ones are drawn with the block.
std::vector<drawing::Entity> attributes_of(const Drawing& drawing, SpaceId block,
                                           const drawing::Insert& insert) {
  constexpr std::int32_t constant = 2;
  const drawing::Matrix place = drawing::placement(insert, drawing.spaces()[index(block)].base);
  std::vector<drawing::Entity> attributes;
  for (const RecordId id : drawing.entities(block)) {
    if (drawing.record(id).kind != drawing::Kind::attdef) continue;
    drawing::Entity entity = drawing.read(id);
    Attrib attribute = std::get<Attdef>(entity.body);
    if ((attribute.flags & constant) != 0) continue;
    transform(attribute, place);
    entity.body = attribute;
    attributes.push_back(std::move(entity));
  }
  return attributes;
}

/// The arguments from `first` on: three scales and a rotation.
drawing::Insert placed(const Arguments& arguments, drawing::Point at, std::size_t first) {
  drawing::Insert insert;
  insert.insertion = at;
  insert.x_scale = arguments.number(first);
  insert.y_scale = arguments.number(first + 1);
  insert.z_scale = arguments.number(first + 2);
  insert.rotation = arguments.number(first + 3);
  if (insert.x_scale == 0 || insert.y_scale == 0 || insert.z_scale == 0) {
    throw failure(HostError::invalid_input);
  }
  return insert;
}

Value add_reference(BlockObject& block, SpaceId inserted, drawing::Insert insert) {
  Drawing& drawing = block.document()->drawing;
  insert.block = drawing.spaces()[index(inserted)].name;
  const auto attributes = attributes_of(drawing, inserted, insert);
  const RecordId id = drawing.add_reference(block.id(), current_common(*block.document()),
                                            std::move(insert), attributes);
  return make_entity(block.document(), id);
}

/// Kept: only blocks of the drawing. A drawing file is not read in.
Value insert_block(BlockObject& block, Arguments& arguments) {
  const drawing::Insert insert = placed(arguments, arguments.point(0, "InsertionPoint"), 2);
  const Drawing& drawing = block.document()->drawing;
  const std::string name = arguments.text(1);
  const auto inserted = drawing.find_space(name);
  if (!inserted || drawing.spaces()[index(*inserted)].is_layout) {
    throw failure(HostError::filer_error, "Filer error: the drawing has no block \"" + name + "\"");
  }
  require_no_cycle(drawing, block.id(), *inserted);
  return add_reference(block, *inserted, insert);
}

Value attach_external_reference(BlockObject& block, Arguments& arguments) {
  const std::string path = arguments.text(0), name = arguments.text(1);
  const drawing::Insert insert = placed(arguments, arguments.point(2, "InsertionPoint"), 3);
  require_valid_name(name);
  require_referenced_file(*block.document(), path);
  Drawing& drawing = block.document()->drawing;
  if (drawing.find_space(name)) throw failure(HostError::duplicate_record_name);
  const SpaceId added = drawing.add_block(name, {});
  const bool overlay = basic::convert<bool>(arguments[7]);
  const std::int32_t kind = overlay ? drawing::Space::xref_flag | drawing::Space::overlay_flag
                                    : drawing::Space::xref_flag;
  drawing.write_block(added, {}, kind | resolved_flag, path);
  return add_reference(block, added, insert);
}

Value add_attribute(BlockObject& block, Arguments& arguments) {
  constexpr std::int32_t all_modes = 15;
  Attdef definition;
  definition.height = checked_number(Member::Height, arguments[0]);
  definition.flags = arguments.integer(1);
  definition.prompt = arguments.text(2);
  definition.insertion = arguments.point(3, "InsertionPoint");
  definition.tag = arguments.text(4);
  definition.text = arguments.text(5);
  definition.style = current_text_style(*block.document());
  const bool has_blank = definition.tag.find(' ') != std::string::npos;
  if (definition.tag.empty() || has_blank || (definition.flags & ~all_modes) != 0) {
    throw failure(HostError::invalid_input);
  }
  const drawing::Entity entity{current_common(*block.document()), std::move(definition)};
  return make_entity(block.document(), block.document()->drawing.add(block.id(), entity));
}

constexpr std::array insertion_rows{
    Method<BlockObject>{Member::InsertBlock, Effect::changes, 6, 7, insert_block},
    Method<BlockObject>{Member::AttachExternalReference, Effect::changes, 8, 9,
                        attach_external_reference},
    Method<BlockObject>{Member::AddAttribute, Effect::changes, 6, 6, add_attribute},
};

}  // namespace

std::span<const Method<BlockObject>> insertions() { return insertion_rows; }

}  // namespace velmar::embedded
