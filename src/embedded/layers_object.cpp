#include "embedded/layers_object.h"

#include <algorithm>

#include "embedded/collection.h"
#include "embedded/document_members.h"
#include "embedded/layer_object.h"
#include "embedded/names.h"

namespace velmar::embedded {

using drawing::LayerId;

Value LayersObject::get(Member member) {
  require_open(*document_);
  if (member == Member::Count) return static_cast<std::int32_t>(live().size());
  if (auto found = document_member(*document_, member)) return std::move(*found);
  throw no_such_member(member);
}

Value LayersObject::call(Member member, std::span<Value> values) {
  require_open(*document_);
  return translated([&]() -> Value {
    if (member == Member::Item) return item(values);
    if (member == Member::Add) return add(values);
    return PlainObject::call(member, values);
  });
}

std::unique_ptr<host::Enumerator> LayersObject::enumerate() {
  require_open(*document_);
  return walk(live(), [document = document_](LayerId id) -> std::optional<Value> {
    if (document->closed || !exists(document->drawing, id)) return std::nullopt;
    return Value(std::make_shared<LayerObject>(document, id));
  });
}

std::vector<LayerId> LayersObject::live() const {
  const drawing::Drawing& drawing = document_->drawing;
  std::vector<LayerId> ids;
  for (std::uint32_t i = 0; i < drawing.layers().size(); ++i) {
    if (exists(drawing, static_cast<LayerId>(i))) ids.push_back(static_cast<LayerId>(i));
  }
  std::ranges::stable_partition(ids, [&](LayerId id) { return drawing.layer(id).name == "0"; });
  return ids;
}

Value LayersObject::layer(LayerId id) const { return std::make_shared<LayerObject>(document_, id); }

Value LayersObject::item(std::span<Value> values) const {
  const Arguments arguments(Member::Item, values, 1, 1);
  const std::vector<LayerId> ids = live();
  if (const auto position = item_position(arguments, ids.size())) return layer(ids[*position]);
  return layer(require_layer(document_->drawing, arguments.text(0)));
}

Value LayersObject::add(std::span<Value> values) {
  const Arguments arguments(Member::Add, values, 1, 1);
  drawing::LayerRow row;
  row.name = arguments.text(0);
  if (const auto present = find_layer(document_->drawing, row.name)) return layer(*present);
  require_valid_name(row.name);
  return layer(document_->drawing.add_layer(row));
}

}  // namespace velmar::embedded
