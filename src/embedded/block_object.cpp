#include "embedded/block_object.h"

#include "basic/conversion.h"
#include "embedded/additions.h"
#include "embedded/block_definition.h"
#include "embedded/collection.h"
#include "embedded/document_members.h"
#include "embedded/entity_object.h"
#include "embedded/entity_walk.h"
#include "embedded/errors.h"
#include "embedded/external_reference.h"
#include "embedded/insertions.h"
#include "embedded/record_members.h"

namespace velmar::embedded {

using drawing::RecordId;

Value BlockObject::get(Member member) {
  require_alive();
  if (auto found = own_property(member)) return std::move(*found);
  if (auto found = record_member(document_, record(), member)) return std::move(*found);
  throw no_such_member(member);
}

void BlockObject::put(Member member, const Value& value) {
  require_alive();
  translated([&] {
    switch (member) {
      case Member::Name:
        return rename_block(*this, value);
      case Member::Origin:
        return put_origin(*this, value);
      case Member::Path:
        return put_path(value);
      default:
        throw no_such_member(member);
    }
  });
}

Value BlockObject::call(Member member, std::span<Value> values) {
  require_alive();
  return translated([&]() -> Value {
    if (member == Member::Item) return item(values);
    for (const auto& table : {additions(), insertions(), external_reference_methods()}) {
      const auto* row = find_row(table, member);
      if (!row) continue;
      Arguments arguments(member, values, row->required, row->at_most);
      return row->call(*this, arguments);
    }
    if (member == Member::GetExtensionDictionary) return extension_dictionary(document_, record());
    if (member == Member::Delete || member == Member::Erase) {
      delete_block(*this);
      return {};
    }
    return PlainObject::call(member, values);
  });
}

std::unique_ptr<host::Enumerator> BlockObject::enumerate() {
  require_alive();
  return std::make_unique<EntityWalk>(document_, document_->drawing.entities(id_));
}

const drawing::Space& BlockObject::space() const { return document_->drawing.spaces()[index(id_)]; }

void BlockObject::require_alive() const {
  require_open(*document_);
  if (space().erased) throw failure(HostError::was_erased);
}

RecordId BlockObject::record() const {
  const drawing::Space& own = space();
  return own.owner != 0 ? document_->drawing.find(own.owner) : own.block;
}

void BlockObject::put_path(const Value& value) {
  const drawing::Space& own = space();
  if (!own.is_xref()) throw no_such_member(Member::Path);
  document_->drawing.write_block(id_, own.base, own.flags, basic::convert<std::string>(value));
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
