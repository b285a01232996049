#include "embedded/layer_object.h"

#include <array>

#include "basic/conversion.h"
#include "basic/strings.h"
#include "embedded/color_object.h"
#include "embedded/current.h"
#include "embedded/document_members.h"
#include "embedded/errors.h"
#include "embedded/names.h"
#include "embedded/properties/table.h"
#include "embedded/record_members.h"

namespace velmar::embedded {
namespace {

using drawing::LayerRow;
using drawing::Record;
using drawing::RecordId;
using LayerProperty = Property<LayerObject>;

bool is_current(const LayerObject& layer) { return current_layer(layer.document()) == layer.id(); }

/// Of an external reference, "plan|walls".
bool is_external(const LayerRow& row) {
  return (row.flags & LayerRow::xref_flag) != 0 || row.name.find('|') != std::string::npos;
}

template <class Change>
void change(LayerObject& layer, Change apply) {
  LayerRow row = layer.row();
  apply(row);
  layer.write(row);
}

void set_flag(LayerObject& layer, std::int32_t flag, const Value& value) {
  const bool on = basic::convert<bool>(value);
  change(layer, [&](LayerRow& row) { row.flags = on ? row.flags | flag : row.flags & ~flag; });
}

void put_name(LayerObject& layer, const Value& value) {
  const auto name = basic::convert<std::string>(value);
  require_valid_name(name);
  if (layer.row().name == "0" || is_external(layer.row())) throw failure(HostError::invalid_input);
  const auto present = find_layer(layer.document().drawing, name);
  if (present && *present != layer.id()) throw failure(HostError::duplicate_record_name);
  change(layer, [&](LayerRow& row) { row.name = name; });
}

std::int32_t color(const LayerObject& layer) { return std::abs(layer.row().color); }

void set_color(LayerObject& layer, std::int32_t color) {
  if (color < 1 || color > 255) throw failure(HostError::invalid_input);
  change(layer, [&](LayerRow& row) { row.color = row.on() ? color : -color; });
}

void put_true_color(LayerObject& layer, const Value& value) {
  const ColorValue color = color_of(value);
  if (color.rgb >= 0) throw not_supported("A true colour of a layer");
  set_color(layer, color.index);
}

void put_on(LayerObject& layer, const Value& value) {
  const bool on = basic::convert<bool>(value);
  change(layer,
         [&](LayerRow& row) { row.color = on ? std::abs(row.color) : -std::abs(row.color); });
}

void put_freeze(LayerObject& layer, const Value& value) {
  if (basic::convert<bool>(value) && is_current(layer)) throw failure(HostError::invalid_layer);
  set_flag(layer, LayerRow::frozen_flag, value);
}

void put_linetype(LayerObject& layer, const Value& value) {
  const std::string name = require_linetype(layer.document().drawing,
                                            basic::convert<std::string>(value), LinetypeOf::layer);
  change(layer, [&](LayerRow& row) { row.linetype = name; });
}

void put_lineweight(LayerObject& layer, const Value& value) {
  const auto weight = basic::convert<std::int32_t>(value);
  require_lineweight(weight);
  constexpr std::int32_t by_default = -3;
  if (weight < 0 && weight != by_default) throw failure(HostError::invalid_input);
  change(layer, [&](LayerRow& row) { row.lineweight = weight; });
}

constexpr std::array layer_object_rows{
    LayerProperty{Member::Name, [](const LayerObject& l) -> Value { return l.row().name; },
                  put_name},
    LayerProperty{Member::Color, [](const LayerObject& l) -> Value { return color(l); },
                  [](LayerObject& l, const Value& value) {
                    set_color(l, basic::convert<std::int32_t>(value));
                  }},
    LayerProperty{Member::TrueColor,
                  [](const LayerObject& l) -> Value {
                    return make_color({color(l), -1});
                  },
                  put_true_color},
    LayerProperty{Member::LayerOn, [](const LayerObject& l) -> Value { return l.row().on(); },
                  put_on},
    LayerProperty{Member::Freeze, [](const LayerObject& l) -> Value { return l.row().frozen(); },
                  put_freeze},
    LayerProperty{
        Member::Lock, [](const LayerObject& l) -> Value { return l.row().locked(); },
        [](LayerObject& l, const Value& value) { set_flag(l, LayerRow::locked_flag, value); }},
    LayerProperty{Member::Plottable,
                  [](const LayerObject& l) -> Value { return l.row().plottable != 0; },
                  [](LayerObject& l, const Value& value) {
                    const bool plots = basic::convert<bool>(value);
                    change(l, [&](LayerRow& row) { row.plottable = plots ? 1 : 0; });
                  }},
    LayerProperty{Member::Linetype,
                  [](const LayerObject& l) -> Value { return linetype_spelling(l.row().linetype); },
                  put_linetype},
    LayerProperty{Member::Lineweight,
                  [](const LayerObject& l) -> Value { return l.row().lineweight; }, put_lineweight},
    LayerProperty{Member::ObjectName,
                  [](const LayerObject&) -> Value { return "AcDbLayerTableRecord"; }},
};

bool is_used(const drawing::Drawing& drawing, drawing::LayerId id) {
  for (std::uint32_t i = 0; i < drawing.size(); ++i) {
    const Record& record = drawing.record(static_cast<RecordId>(i));
    if (record.layer == id && !record.is(Record::erased)) return true;
  }
  return false;
}

}  // namespace

Value LayerObject::get(Member member) {
  return translated([&]() -> Value {
    require_alive();
    if (const auto* row = find_row(std::span<const LayerProperty>(layer_object_rows), member)) {
      return row->get(*this);
    }
    if (auto found = record_member(document_, row().record, member)) return std::move(*found);
    throw no_such_member(member);
  });
}

void LayerObject::put(Member member, const Value& value) {
  translated([&] {
    require_alive();
    const auto* row = find_row(std::span<const LayerProperty>(layer_object_rows), member);
    if (!row || !row->put) throw no_such_member(member);
    row->put(*this, value);
  });
}

Value LayerObject::call(Member member, std::span<Value> values) {
  if (member == Member::GetExtensionDictionary) {
    require_alive();
    return extension_dictionary(document_, row().record);
  }
  if (member != Member::Delete && member != Member::Erase) return PlainObject::call(member, values);
  return translated([&]() -> Value {
    require_alive();
    const Arguments no_arguments(member, values, 0, 0);
    erase();
    return {};
  });
}

void LayerObject::require_alive() const {
  require_open(*document_);
  if (!exists(document_->drawing, id_)) throw failure(HostError::was_erased);
}

void LayerObject::erase() {
  const bool has_row = row().record != RecordId::none;
  if (!has_row || row().name == "0" || is_external(row()) || is_current(*this) ||
      is_used(document_->drawing, id_)) {
    throw failure(HostError::invalid_input, "The layer is in use or may not be deleted");
  }
  // Layers are found by name, deleted ones too: the name must be free for another.
  drawing::LayerRow nameless = row();
  nameless.name = "*deleted " + std::to_string(index(id_));
  write(nameless);
  document_->drawing.erase(row().record);
}

}  // namespace velmar::embedded
