#include "embedded/entity_object.h"

#include "embedded/dimension_variables.h"
#include "embedded/document_members.h"
#include "embedded/entity_members.h"
#include "embedded/errors.h"
#include "embedded/properties/body.h"

namespace velmar::embedded {

using drawing::Record;

Value EntityObject::get(Member member) {
  require_alive();
  switch (member) {  // what every walk asks for
    case Member::ObjectName:
    case Member::Layer:
      return text_at_hand(member);
    case Member::Handle:
      return drawing::handle_text(record().handle);
    case Member::TextString:
      if (!decoded_ &&
          (record().kind == drawing::Kind::text || record().kind == drawing::Kind::mtext)) {
        return translated([&] { return Value(drawing().read_text_string(id_)); });
      }
      [[fallthrough]];
    default:
      return translated([&] { return get_other(member); });
  }
}

std::string_view EntityObject::text_at_hand(Member member) {
  if (member != Member::ObjectName && member != Member::Layer) return {};
  require_alive();
  return member == Member::Layer ? std::string_view(layer_name()) : drawing().object_name(id_);
}

void EntityObject::put(Member member, const Value& value) {
  translated([&] {
    require_alive();
    require_unlocked();
    if (const auto* row = find_entity_property(record().kind, member)) {
      if (!row->put) throw no_such_member(member);
      return row->put(*this, value);
    }
    const bool is_dimension = record().kind == drawing::Kind::dimension;
    if (is_dimension && put_dimension_variable(*this, member, value)) return;
    drawing::Body changed = body();
    if (!put_property(drawing(), changed, member, value)) throw unknown(member);
    drawing().write_body(id_, changed);
  });
}

Value EntityObject::call(Member member, std::span<Value> arguments) {
  return translated([&]() -> Value {
    require_alive();
    if (auto result = call_common(member, arguments)) return std::move(*result);
    if (auto result = call_own(member, arguments)) return std::move(*result);
    if (arguments.empty()) return get(member);
    throw unknown(member);
  });
}

std::unique_ptr<host::Enumerator> EntityObject::enumerate() {
  throw basic::Failure(basic::no_such_member);
}

drawing::Body& EntityObject::decoded() const {
  const std::uint64_t edition = drawing().edition();
  if (!decoded_ || decoded_->edition != edition) {
    decoded_ = std::make_unique<Decoded>(Decoded{drawing().read_body(id_), edition});
  }
  return decoded_->body;
}

void EntityObject::require_alive() const {
  require_open(*document_);
  if (record().is(Record::erased)) throw failure(HostError::was_erased);
}

void EntityObject::require_unlocked() const {
  const drawing::LayerId layer = record().layer;
  if (layer != drawing::LayerId::none && drawing().layer(layer).locked()) {
    throw failure(HostError::on_locked_layer);
  }
}

const std::string& EntityObject::layer_name() const {
  static const std::string zero = "0";
  const drawing::LayerId layer = record().layer;
  return layer == drawing::LayerId::none ? zero : drawing().layer(layer).name;
}

Value EntityObject::get_other(Member member) const {
  if (const auto* row = find_entity_property(record().kind, member)) return row->get(*this);
  if (auto found = document_member(*document_, member)) return std::move(*found);
  if (auto found = get_property(body(), member)) return std::move(*found);
  if (record().kind == drawing::Kind::dimension) {
    if (auto found = get_dimension_variable(*this, member)) return std::move(*found);
  }
  throw unknown(member);
}

std::optional<Value> EntityObject::call_common(Member member, std::span<Value> values) {
  const auto* row = find_entity_method(record().kind, member);
  if (!row) return std::nullopt;
  if (row->effect == Effect::changes) require_unlocked();
  Arguments arguments(member, values, row->required, row->at_most);
  return row->call(*this, arguments);
}

std::optional<Value> EntityObject::call_own(Member member, std::span<Value> values) {
  const auto effect = method_effect(body(), member, values.size());
  if (!effect) return std::nullopt;
  if (*effect == Effect::changes) require_unlocked();
  if (*effect == Effect::reads) return call_method(decoded(), member, values);
  drawing::Body changed = body();
  Value result = call_method(changed, member, values);
  drawing().write_body(id_, changed);
  return result;
}

basic::Failure EntityObject::unknown(Member member) const {
  basic::Failure unknown = no_such_member(member);
  unknown.description += " of " + kind();
  return unknown;
}

std::shared_ptr<EntityObject> make_entity(DocumentPointer document, drawing::RecordId id) {
  return std::make_shared<EntityObject>(std::move(document), id);
}

}  // namespace velmar::embedded
