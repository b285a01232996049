#include "drawing/drawing.h"
#include "drawing/dxf/field_writer.h"
#include "drawing/dxf/record_builder.h"
#include "drawing/dxf/record_reader.h"
#include "drawing/sheet_viewport.h"
#include "drawing/store.h"
#include "drawing/table_rows.h"

namespace velmar::drawing {
namespace {

/// Of several tiled viewports the first is the one that is worked in.
RecordId active_viewport(const Store& store) {
  for (const TableRow& row : store.rows) {
    if (row.table == "VPORT" && same_name(row.name, "*Active")) return row.record;
  }
  return RecordId::none;
}

template <class Fields>
void write_row(Store& store, RecordId id, Fields& values) {
  const dxf::RecordTags record(store.bytes(id), store.format);
  dxf::FieldWriter writer(record);
  fields(writer, values);
  if (writer.changed()) store.patch(id, writer.result());
}

/// A row that shows the plan, with the settings of a new drawing.
RecordId add_viewport_row(Store& store) {
  const RecordId id = add_table_row(store, "VPORT", "AcDbViewportTableRecord");
  if (id == RecordId::none) return id;
  dxf::RecordBuilder row("VPORT", store.format);
  if (store.has_handles) row.handle(5, store.at(id).handle);
  row.owner(store.at(store.tables.find("VPORT")->second.begin).handle);
  row.marker("AcDbSymbolTableRecord").marker("AcDbViewportTableRecord").text(2, "*Active");
  const Point half{0.5, 0.5, 0}, one{1, 1, 0};
  row.integer(70, 0).flat(10, {}).flat(11, one).flat(12, {}).flat(13, {}).flat(14, half);
  row.flat(15, half).point(16, z_axis).point(17, {}).real(40, 1).real(41, 1.5).real(42, 50);
  row.real(43, 0).real(44, 0).real(50, 0).real(51, 0).integer(71, 0).integer(72, 100);
  row.integer(73, 1).integer(74, 3).integer(75, 0).integer(76, 0).integer(77, 0).integer(78, 0);
  store.patches[static_cast<std::uint32_t>(id)] = row.bytes();
  store.rows.push_back({"VPORT", "*Active", id});
  return id;
}

}  // namespace

std::optional<View> Drawing::view(SpaceId space) {
  if (space == SpaceId::model) {
    RecordId id = active_viewport(*store_);
    if (id == RecordId::none) id = add_viewport_row(*store_);
    if (id == RecordId::none) return std::nullopt;
    ViewportRow row;
    dxf::RecordReader(store_->bytes(id), store_->format).read(row);
    return row;
  }
  const RecordId id = sheet_viewport(*this, space);
  if (id == RecordId::none) return std::nullopt;
  SheetViewport viewport;
  dxf::RecordReader(store_->bytes(id), store_->format).read(viewport);
  View view;
  view.center = viewport.center;
  view.height = viewport.height;
  view.aspect = viewport.height > 0 ? viewport.width / viewport.height : 1;
  return view;
}

void Drawing::write_view(SpaceId space, const View& view) {
  if (space == SpaceId::model) {
    const RecordId id = active_viewport(*store_);
    if (id == RecordId::none) return;
    ViewportRow row{view};
    return write_row(*store_, id, row);
  }
  const RecordId id = sheet_viewport(*this, space);
  if (id == RecordId::none) return;
  SheetViewport viewport{view.center, view.width(), view.height, view.center, view.height};
  write_row(*store_, id, viewport);
}

}  // namespace velmar::drawing
