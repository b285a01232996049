#include "drawing/drawing.h"
#include "drawing/dxf/field_writer.h"
#include "drawing/dxf/record_edit.h"
#include "drawing/history.h"
#include "drawing/store.h"
#include "drawing/table_rows.h"

namespace velmar::drawing {
namespace {

std::string written(const Store& store, std::string_view bytes, const LayerRow& row) {
  const dxf::RecordTags record(bytes, store.format);
  dxf::FieldWriter writer(record);
  fields(writer, const_cast<LayerRow&>(row));
  return writer.result();
}

/// Entities name their layer by its text, so each of them is written.
void rename_in_entities(Store& store, LayerId layer, const std::string& name) {
  for (std::uint32_t i = 0; i < store.records.size(); ++i) {
    const Record& record = store.records[i];
    if (record.layer != layer || record.is(Record::erased)) continue;
    const auto id = static_cast<RecordId>(i);
    const dxf::RecordTags tags(store.bytes(id), store.format);
    dxf::FieldWriter writer(tags);
    writer.subclass("AcDbEntity");
    writer("Layer", 8, name);
    if (writer.changed()) store.patch(id, writer.result());
  }
}

}  // namespace

LayerId Drawing::add_layer(const LayerRow& row) {
  if (const auto present = find_layer(row.name)) return *present;
  Layer layer;
  static_cast<LayerRow&>(layer) = row;
  // A file without a layer table has layers by their use alone.
  layer.record = add_table_row(*store_, "LAYER", "AcDbLayerTableRecord");
  if (layer.record != RecordId::none) {
    std::string& bytes = store_->patches.at(static_cast<std::uint32_t>(layer.record));
    bytes = written(*store_, bytes, row);
  }
  store_->layers.push_back(std::move(layer));
  return static_cast<LayerId>(store_->layers.size() - 1);
}

void Drawing::write_layer(LayerId id, const LayerRow& row) {
  Layer& layer = store_->layers.at(index(id));
  if (layer.record == RecordId::none) {
    throw Error(store_->name + ": layer \"" + layer.name +
                "\" is in use without a row in the layer table; its properties cannot be kept");
  }
  if (store_->history) store_->history->remember(*store_, id);
  std::string bytes = written(*store_, store_->bytes(layer.record), row);
  if (bytes != store_->bytes(layer.record)) store_->patch(layer.record, std::move(bytes));
  if (layer.name != row.name) {
    const bool is_current = header("$CLAYER") == layer.name;
    rename_in_entities(*store_, id, row.name);
    if (is_current) {
      const RecordId head = store_->landmarks.header;
      store_->patch(head,
                    dxf::with_variable(store_->bytes(head), "$CLAYER", row.name, store_->format));
    }
    store_->layer_names.forget();
  }
  static_cast<LayerRow&>(layer) = row;
}

}  // namespace velmar::drawing
