#include "drawing/table_rows.h"

#include "drawing/drawing.h"
#include "drawing/dxf/record_edit.h"
#include "drawing/dxf/tag.h"

namespace velmar::drawing {
namespace {

std::string bare_row(const Store& store, std::string_view kind, std::string_view row_class,
                     Handle handle, Handle table) {
  const dxf::Format& format = store.format;
  std::string bytes;
  dxf::append_text(bytes, 0, kind, format);
  const int handle_code = kind == "DIMSTYLE" ? 105 : 5;
  if (store.has_handles) dxf::append_text(bytes, handle_code, handle_text(handle), format);
  if (format.has_subclasses()) {
    if (table != 0) dxf::append_text(bytes, 330, handle_text(table), format);
    dxf::append_text(bytes, 100, "AcDbSymbolTableRecord", format);
    dxf::append_text(bytes, 100, row_class, format);
  }
  return bytes;
}

}  // namespace

RecordId add_table_row(Store& store, std::string_view table, std::string_view row_class) {
  const auto found = store.tables.find(table);
  if (found == store.tables.end() || found->second.end == RecordId::none) return RecordId::none;
  const TableMarks& marks = found->second;
  Record record;
  record.kind = store.kind_named(table);
  const RecordId id = store.add(marks.end, record, {});
  const Handle handle = store.give_handle(id);
  store.patches[static_cast<std::uint32_t>(id)] =
      marks.first_row == RecordId::none
          ? bare_row(store, table, row_class, handle, store.at(marks.begin).handle)
          : dxf::copied(store.bytes(marks.first_row), store.has_handles ? handle : 0, std::nullopt,
                        store.format);
  return id;
}

std::vector<std::string> Drawing::table(std::string_view name) const {
  std::vector<std::string> names;
  for (const TableRow& row : store_->rows) {
    if (row.table == name) names.push_back(row.name);
  }
  return names;
}

std::vector<RecordId> Drawing::rows(std::string_view table) const {
  std::vector<RecordId> ids;
  for (const TableRow& row : store_->rows) {
    if (row.table == table) ids.push_back(row.record);
  }
  return ids;
}

bool Drawing::has_row(std::string_view table, std::string_view name) const {
  for (const TableRow& row : store_->rows) {
    if (row.table == table && same_name(row.name, name)) return true;
  }
  return false;
}

RecordId Drawing::find_row(std::string_view table, std::string_view name) const {
  for (const TableRow& row : store_->rows) {
    if (row.table == table && same_name(row.name, name)) return row.record;
  }
  // Rows of block records are kept as spaces.
  const auto space = table == "BLOCK_RECORD" ? find_space(name) : std::nullopt;
  return space ? find(store_->spaces[index(*space)].owner) : RecordId::none;
}

}  // namespace velmar::drawing
