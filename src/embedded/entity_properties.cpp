#include <array>

#include "basic/conversion.h"
#include "embedded/color_object.h"
#include "embedded/entity_members.h"
#include "embedded/entity_types.h"
#include "embedded/errors.h"
#include "embedded/names.h"
#include "embedded/object_ids.h"
#include "embedded/properties/checks.h"

namespace velmar::embedded {
namespace {

using drawing::Common;
using drawing::Record;
using drawing::RecordId;

Common common(const EntityObject& entity) { return entity.drawing().read_common(entity.id()); }

template <class Change>
void change(EntityObject& entity, Change apply) {
  Common changed = common(entity);
  apply(changed);
  entity.drawing().write_common(entity.id(), changed);
}

Value get_layer(const EntityObject& entity) { return entity.layer_name(); }

/// Kept: a locked layer may be the new one.
void put_layer(EntityObject& entity, const Value& value) {
  const auto name = basic::convert<std::string>(value);
  constexpr std::string_view always_there = "0";  // also where neither table nor entities name it
  const bool is_there = name == always_there && !entity.drawing().find_layer(name);
  const std::string layer =
      is_there ? name : entity.drawing().layer(require_layer(entity.drawing(), name)).name;
  change(entity, [&](Common& it) { it.layer = layer; });
}

Value get_color(const EntityObject& entity) { return std::int32_t{entity.record().color}; }

void put_color(EntityObject& entity, const Value& value) {
  const auto color = basic::convert<std::int32_t>(value);
  if (color < 0 || color > 256) throw failure(HostError::invalid_input);
  change(entity, [&](Common& it) {
    it.color = color;
    it.true_color = -1;
  });
}

Value get_true_color(const EntityObject& entity) {
  const Common it = common(entity);
  return make_color({it.color, it.true_color});
}

void put_true_color(EntityObject& entity, const Value& value) {
  const ColorValue color = color_of(value);
  change(entity, [&](Common& it) {
    it.color = color.index;
    it.true_color = color.rgb;
  });
}

void put_linetype(EntityObject& entity, const Value& value) {
  const auto name = basic::convert<std::string>(value);
  const std::string found = require_linetype(entity.drawing(), name, LinetypeOf::entity);
  change(entity, [&](Common& it) {
    if (linetype_spelling(it.linetype) != found) it.linetype = found;
  });
}

void put_linetype_scale(EntityObject& entity, const Value& value) {
  const double scale = checked_number(Member::LinetypeScale, value);
  change(entity, [&](Common& it) { it.linetype_scale = scale; });
}

void put_lineweight(EntityObject& entity, const Value& value) {
  const auto weight = basic::convert<std::int32_t>(value);
  require_lineweight(weight);
  change(entity, [&](Common& it) { it.lineweight = weight; });
}

void put_visible(EntityObject& entity, const Value& value) {
  const bool visible = basic::convert<bool>(value);
  change(entity, [&](Common& it) { it.invisible = visible ? 0 : 1; });
}

/// Of the block that holds the entity; an attribute belongs to its block reference.
RecordId owner(const EntityObject& entity) {
  const drawing::Drawing& drawing = entity.drawing();
  const Record& record = entity.record();
  if (record.is(Record::part)) return drawing.whole(entity.id());
  if (record.space == drawing::SpaceId::none) return RecordId::none;
  return drawing.find(drawing.spaces()[index(record.space)].owner);
}

constexpr std::array entity_property_rows{
    EntityProperty{Member::Layer, get_layer, put_layer},
    EntityProperty{Member::Color, get_color, put_color},
    EntityProperty{Member::TrueColor, get_true_color, put_true_color},
    EntityProperty{Member::Linetype,
                   [](const EntityObject& e) -> Value {
                     return linetype_spelling(e.drawing().read_linetype_name(e.id()));
                   },
                   put_linetype},
    EntityProperty{Member::LinetypeScale,
                   [](const EntityObject& e) -> Value { return common(e).linetype_scale; },
                   put_linetype_scale},
    EntityProperty{Member::Lineweight,
                   [](const EntityObject& e) -> Value { return common(e).lineweight; },
                   put_lineweight},
    EntityProperty{Member::Visible,
                   [](const EntityObject& e) -> Value { return common(e).invisible == 0; },
                   put_visible},
    EntityProperty{Member::PlotStyleName, [](const EntityObject&) -> Value { return "ByLayer"; }},
    EntityProperty{
        Member::Handle,
        [](const EntityObject& e) -> Value { return drawing::handle_text(e.record().handle); }},
    EntityProperty{Member::ObjectName,
                   [](const EntityObject& e) -> Value { return e.drawing().object_name(e.id()); }},
    EntityProperty{Member::EntityName,
                   [](const EntityObject& e) -> Value { return e.drawing().object_name(e.id()); }},
    EntityProperty{Member::EntityType,
                   [](const EntityObject& e) -> Value {
                     return entity_type(e.drawing().object_name(e.id()));
                   }},
    EntityProperty{Member::ObjectID,
                   [](const EntityObject& e) -> Value { return object_id(e.id()); }},
    EntityProperty{Member::HasExtensionDictionary,
                   [](const EntityObject& e) -> Value {
                     return e.drawing().has_extension_dictionary(e.id());
                   }},
    EntityProperty{Member::OwnerID,
                   [](const EntityObject& e) -> Value { return object_id(owner(e)); }},
};

}  // namespace

std::span<const EntityProperty> entity_properties() { return entity_property_rows; }

}  // namespace velmar::embedded
