#include "embedded/block_definition.h"

#include <set>

#include "basic/conversion.h"
#include "basic/strings.h"
#include "embedded/arguments.h"
#include "embedded/errors.h"
#include "embedded/names.h"

namespace velmar::embedded {
namespace {

using drawing::RecordId;
using drawing::Space;
using drawing::SpaceId;

const Space& require_plain(const BlockObject& block) {
  const Space& space = block.document()->drawing.spaces()[index(block.id())];
  if (space.is_layout || space.is_xref() || space.name.starts_with('*')) {
    throw failure(HostError::invalid_input,
                  "Block " + space.name + " is a layout, anonymous or an external reference");
  }
  return space;
}

}  // namespace

void rename_block(BlockObject& block, const Value& value) {
  const auto name = basic::convert<std::string>(value);
  require_valid_name(name);
  require_plain(block);
  drawing::Drawing& drawing = block.document()->drawing;
  const auto present = drawing.find_space(name);
  if (present && *present != block.id()) throw failure(HostError::duplicate_record_name);
  drawing.rename_block(block.id(), name);
}

void put_origin(BlockObject& block, const Value& value) {
  drawing::Drawing& drawing = block.document()->drawing;
  const Space& space = drawing.spaces()[index(block.id())];
  drawing.write_block(block.id(), to_point(value, "Origin", Member::Origin), space.flags,
                      std::string(space.path));
}

void delete_block(BlockObject& block) {
  require_plain(block);
  if (!block.document()->drawing.erase_unused_block(block.id())) {
    throw failure(HostError::invalid_input, "The block is in use");
  }
}

void require_no_cycle(const drawing::Drawing& drawing, SpaceId into, SpaceId inserted) {
  std::vector<SpaceId> open{inserted};
  std::set<SpaceId> seen{inserted};
  while (!open.empty()) {
    const SpaceId space = open.back();
    open.pop_back();
    if (space == into) {
      throw failure(HostError::invalid_input, "The block would contain itself");
    }
    for (const RecordId id : drawing.entities(space)) {
      if (drawing.record(id).kind != drawing::Kind::insert) continue;
      const auto block = drawing.find_space(std::get<drawing::Insert>(drawing.read_body(id)).block);
      if (block && seen.insert(*block).second) open.push_back(*block);
    }
  }
}

}  // namespace velmar::embedded
