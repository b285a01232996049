#include "drawing/drawing.h"
#include "drawing/dxf/field_writer.h"
#include "drawing/dxf/record_builder.h"
#include "drawing/dxf/record_reader.h"
#include "drawing/store.h"
#include "drawing/table_rows.h"

namespace velmar::drawing {

LinetypeRow Drawing::read_linetype(RecordId row) const {
  LinetypeRow linetype;
  dxf::RecordReader(store_->bytes(row), store_->format).read(linetype);
  return linetype;
}

void Drawing::write_linetype(RecordId row, const LinetypeRow& linetype) {
  const dxf::RecordTags record(store_->bytes(row), store_->format);
  dxf::FieldWriter writer(record);
  fields(writer, const_cast<LinetypeRow&>(linetype));
  if (writer.changed()) store_->patch(row, writer.result());
}

RecordId Drawing::add_linetype(const LinetypeRow& linetype) {
  const RecordId id = add_table_row(*store_, "LTYPE", "AcDbLinetypeTableRecord");
  if (id == RecordId::none) {
    throw Error(store_->name + ": no linetype can be added: the file has no LTYPE table");
  }
  dxf::RecordBuilder row("LTYPE", store_->format);
  if (store_->has_handles) row.handle(5, store_->at(id).handle);
  row.owner(store_->at(store_->tables.find("LTYPE")->second.begin).handle);
  row.marker("AcDbSymbolTableRecord").marker("AcDbLinetypeTableRecord").text(2, linetype.name);
  row.integer(70, 0).text(3, linetype.description).integer(72, 65).integer(73, 0).real(40, 0);
  store_->patches[static_cast<std::uint32_t>(id)] = row.bytes();
  store_->rows.push_back({"LTYPE", linetype.name, id});
  return id;
}

}  // namespace velmar::drawing
