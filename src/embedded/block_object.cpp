#include "embedded/block_object.h"

#include "embedded/additions.h"
#include "embedded/collection.h"
#include "embedded/document_members.h"
#include "embedded/entity_object.h"
#include "embedded/entity_walk.h"
#include "embedded/object_ids.h"

namespace velmar::embedded {

using drawing::RecordId;

Value BlockObject::get(Member member) {
  require_open(*document_);
  if (auto found = own_property(member)) return std::move(*found);
  if (auto found = document_member(*document_, member)) return std::move(*found);
  throw no_such_member(member);
}

void BlockObject::put(Member member, const Value&) {
  if (member == Member::Name || member == Member::Origin) {
    throw not_supported("Changing a block definition");
  }
  throw no_such_member(member);
}

Value BlockObject::call(Member member, std::span<Value> values) {
  require_open(*document_);
  return translated([&]() -> Value {
    if (member == Member::Item) return item(values);
    if (const auto* row = find_row(additions(), member)) {
      Arguments arguments(member, values, row->required, row->at_most);
      return row->call(*this, arguments);
    }
    if (member == Member::Delete) throw not_supported("Delete of a block definition");
    return PlainObject::call(member, values);
  });
}

std::unique_ptr<host::Enumerator> BlockObject::enumerate() {
  require_open(*document_);
  return std::make_unique<EntityWalk>(document_, document_->drawing.entities(id_));
}

const drawing::Space& BlockObject::space() const { return document_->drawing.spaces()[index(id_)]; }

drawing::Handle BlockObject::record_handle() const {
  const drawing::Space& own = space();
  if (own.owner != 0 || own.block == RecordId::none) return own.owner;
  return document_->drawing.record(own.block).handle;
}

const std::vector<RecordId>& BlockObject::live() {
  const std::uint64_t edition = document_->drawing.edition();
  if (live_edition_ != edition) {
    live_ = document_->drawing.entities(id_);
    live_edition_ = edition;
  }
  return live_;
}

std::optional<Value> BlockObject::own_property(Member member) {
  const drawing::Space& own = space();
  switch (member) {
    case Member::Name:
      return own.name;
    case Member::Count:
      return static_cast<std::int32_t>(live().size());
    case Member::IsLayout:
      return own.is_layout;
    case Member::IsXRef:
      return own.is_xref();
    case Member::Path:
      if (!own.is_xref()) throw no_such_member(member);
      return own.path;
    case Member::Origin:
      return to_value(own.base);
    case Member::ObjectName:
      return "AcDbBlockTableRecord";
    case Member::Handle:
      return drawing::handle_text(record_handle());
    case Member::ObjectID:
      return object_id(document_->drawing.find(record_handle()));
    default:
      return std::nullopt;
  }
}

Value BlockObject::item(std::span<Value> values) {
  const Arguments arguments(Member::Item, values, 1, 1);
  const auto position = item_position(arguments, live().size());
  if (!position) throw invalid_argument("Index", Member::Item);
  return make_entity(document_, live()[*position]);
}

}  // namespace velmar::embedded
