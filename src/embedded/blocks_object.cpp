#include "embedded/blocks_object.h"

#include "embedded/block_object.h"
#include "embedded/collection.h"
#include "embedded/document_members.h"

namespace velmar::embedded {

using drawing::SpaceId;

Value BlocksObject::get(Member member) {
  require_open(*document_);
  if (member == Member::Count) {
    return static_cast<std::int32_t>(document_->drawing.spaces().size());
  }
  if (auto found = document_member(*document_, member)) return std::move(*found);
  throw no_such_member(member);
}

Value BlocksObject::call(Member member, std::span<Value> values) {
  require_open(*document_);
  if (member == Member::Add) throw not_supported("Adding a block definition");
  if (member != Member::Item) return PlainObject::call(member, values);
  const Arguments arguments(member, values, 1, 1);
  const drawing::Drawing& drawing = document_->drawing;
  if (const auto position = item_position(arguments, drawing.spaces().size())) {
    return std::make_shared<BlockObject>(document_, static_cast<SpaceId>(*position));
  }
  const auto found = drawing.find_space(arguments.text(0));
  if (!found) throw failure(HostError::key_not_found);
  return std::make_shared<BlockObject>(document_, *found);
}

std::unique_ptr<host::Enumerator> BlocksObject::enumerate() {
  require_open(*document_);
  std::vector<SpaceId> ids;
  for (std::uint32_t i = 0; i < document_->drawing.spaces().size(); ++i) {
    ids.push_back(static_cast<SpaceId>(i));
  }
  return walk(std::move(ids), [document = document_](SpaceId id) -> std::optional<Value> {
    return Value(std::make_shared<BlockObject>(document, id));
  });
}

}  // namespace velmar::embedded
