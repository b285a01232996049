#include "embedded/blocks_object.h"

#include "embedded/block_object.h"
#include "embedded/collection.h"
#include "embedded/document_members.h"
#include "embedded/names.h"

namespace velmar::embedded {

using drawing::SpaceId;

Value BlocksObject::get(Member member) {
  require_open(*document_);
  if (member == Member::Count) return static_cast<std::int32_t>(live().size());
  if (auto found = document_member(*document_, member)) return std::move(*found);
  throw no_such_member(member);
}

Value BlocksObject::call(Member member, std::span<Value> values) {
  require_open(*document_);
  if (member == Member::Add) return add(Arguments(member, values, 2, 2));
  if (member != Member::Item) return PlainObject::call(member, values);
  const Arguments arguments(member, values, 1, 1);
  const drawing::Drawing& drawing = document_->drawing;
  const std::vector<SpaceId> blocks = live();
  if (const auto position = item_position(arguments, blocks.size())) {
    return std::make_shared<BlockObject>(document_, blocks[*position]);
  }
  const auto found = drawing.find_space(arguments.text(0));
  if (!found) throw failure(HostError::key_not_found);
  return std::make_shared<BlockObject>(document_, *found);
}

std::unique_ptr<host::Enumerator> BlocksObject::enumerate() {
  require_open(*document_);
  return walk(live(), [document = document_](SpaceId id) -> std::optional<Value> {
    if (document->drawing.spaces()[index(id)].erased) return std::nullopt;
    return Value(std::make_shared<BlockObject>(document, id));
  });
}

std::vector<SpaceId> BlocksObject::live() const {
  const auto& spaces = document_->drawing.spaces();
  std::vector<SpaceId> ids;
  for (std::uint32_t i = 0; i < spaces.size(); ++i) {
    if (!spaces[i].erased) ids.push_back(static_cast<SpaceId>(i));
  }
  return ids;
}

/// The block that is there where one has the name.
Value BlocksObject::add(const Arguments& arguments) {
  const drawing::Point origin = arguments.point(0, "InsertionPoint");
  const std::string name = arguments.text(1);
  drawing::Drawing& drawing = document_->drawing;
  if (const auto present = drawing.find_space(name)) {
    return std::make_shared<BlockObject>(document_, *present);
  }
  require_valid_name(name);
  return translated([&]() -> Value {
    return std::make_shared<BlockObject>(document_, drawing.add_block(name, origin));
  });
}

}  // namespace velmar::embedded
