#include "drawing/drawing.h"
#include "drawing/dxf/field_writer.h"
#include "drawing/dxf/record_reader.h"
#include "drawing/store.h"
#include "drawing/table_rows.h"

namespace velmar::drawing {

std::string Drawing::row_text(RecordId row, int code) const {
  return dxf::RecordReader(store_->bytes(row), store_->format).first_text(code);
}

DimVariables Drawing::read_dim_style(RecordId row) const {
  const dxf::RecordTags record(store_->bytes(row), store_->format);
  dxf::FieldReader reader(record);
  DimVariables variables;
  fields(reader, variables);
  if (const auto& problem = reader.problem()) {
    throw Error(store_->where(row, problem->offset) + ": " + problem->text);
  }
  return variables;
}

RecordId Drawing::add_dim_style(const std::string& name) {
  const RecordId row = add_table_row(*store_, "DIMSTYLE", "AcDbDimStyleTableRecord");
  if (row == RecordId::none) throw Error(store_->name + ": the file has no table of DIMSTYLE");
  std::string& bytes = store_->patches.at(static_cast<std::uint32_t>(row));
  const dxf::RecordTags record(bytes, store_->format);
  dxf::FieldWriter writer(record);
  writer.subclass("AcDbDimStyleTableRecord");
  writer("Name", 2, name);
  writer("Flags", 70, std::int32_t{0});
  bytes = writer.result();
  store_->rows.push_back({"DIMSTYLE", name, row});
  return row;
}

}  // namespace velmar::drawing
