#include <algorithm>

#include "drawing/block_records.h"
#include "drawing/dictionaries.h"
#include "drawing/drawing.h"
#include "drawing/dxf/field_writer.h"
#include "drawing/dxf/record_edit.h"
#include "drawing/erasing.h"
#include "drawing/history.h"
#include "drawing/layout_records.h"

namespace velmar::drawing {
namespace {

constexpr std::string_view first_layout = "Layout1";

Layout& layout_of(Store& store, SpaceId sheet) {
  if (store.history) store.history->remember_layouts(store);
  const auto found = std::find_if(store.layouts.begin(), store.layouts.end(),
                                  [&](const Layout& layout) { return layout.space == sheet; });
  if (found == store.layouts.end() || sheet == SpaceId::none) {
    throw Error(store.name + ": there is no such layout, or it has no sheet");
  }
  return *found;
}

void write_layout(Store& store, const Layout& layout) {
  if (layout.record == RecordId::none) return;
  const dxf::RecordTags record(store.bytes(layout.record), store.format);
  dxf::FieldWriter writer(record);
  writer.subclass("AcDbLayout");
  writer("Name", 1, layout.name);
  writer("TabOrder", 71, layout.tab);
  if (writer.changed()) store.patch(layout.record, writer.result());
}

void sort_by_tab(std::vector<Layout>& layouts) {
  std::stable_sort(layouts.begin() + 1, layouts.end(),
                   [](const Layout& a, const Layout& b) { return a.tab < b.tab; });
}

/// Some files keep the name of the current tab among the variables of the root dictionary.
void write_current_tab(Store& store, const std::string& name) {
  const RecordId variables = named_dictionary(store, "AcDbVariableDictionary");
  if (variables == RecordId::none) return;
  const RecordId current = dictionary_item(store, variables, "CTAB");
  if (current == RecordId::none) return;
  const dxf::RecordTags record(store.bytes(current), store.format);
  dxf::FieldWriter writer(record);
  writer.subclass("DictionaryVariables");
  writer("Value", 1, name);
  if (writer.changed()) store.patch(current, writer.result());
}

/// Some files name the layout in each of its entities.
void rename_in_entities(Store& store, SpaceId sheet, const std::string& name) {
  for (const RecordId id : store.spaces[index(sheet)].entities) {
    const std::string_view bytes = store.bytes(id);
    if (store.at(id).is(Record::erased) || bytes.find("410") == bytes.npos) continue;
    const dxf::RecordTags record(bytes, store.format);
    dxf::FieldWriter writer(record);
    writer.subclass("AcDbEntity");
    writer("Layout", 410, name, unless{name});
    if (writer.changed()) store.patch(id, writer.result());
  }
}

}  // namespace

void Drawing::activate_layout(SpaceId sheet) {
  const bool is_model = sheet == SpaceId::model;
  if (!is_model) swap_sheets(*store_, sheet);
  set_header("$TILEMODE", 70, is_model ? 1 : 0);
  write_current_tab(*store_, layout_of(*store_, sheet).name);
}

SpaceId Drawing::add_layout(const std::string& name) {
  const Layout added = add_layout_records(*store_, name, store_->layouts.back().tab + 1);
  sort_by_tab(store_->layouts);
  return added.space;
}

void Drawing::rename_layout(SpaceId sheet, const std::string& name) {
  Layout& layout = layout_of(*store_, sheet);
  if (layout.record == RecordId::none) {
    throw Error(store_->name + ": layout \"" + layout.name +
                "\" cannot be renamed: the file has no LAYOUT objects");
  }
  layout.name = name;
  write_layout(*store_, layout);
  const RecordId dictionary = drawing::named_dictionary(*store_, "ACAD_LAYOUT");
  if (dictionary != RecordId::none) {
    rename_entry(*store_, dictionary, store_->at(layout.record).handle, name);
  }
  rename_in_entities(*store_, sheet, name);
}

void Drawing::move_tab(SpaceId sheet, std::int32_t tab) {
  std::vector<Layout>& layouts = store_->layouts;
  const Layout moved = layout_of(*store_, sheet);
  std::erase_if(layouts, [&](const Layout& layout) { return layout.space == sheet; });
  layouts.insert(layouts.begin() + tab, moved);
  for (std::size_t i = 1; i < layouts.size(); ++i) {
    layouts[i].tab = static_cast<std::int32_t>(i);
    write_layout(*store_, layouts[i]);
  }
}

void Drawing::erase_layout(SpaceId sheet) {
  const Layout old = layout_of(*store_, sheet);
  if (old.record == RecordId::none) {  // a file without layouts has always the one
    for (const RecordId id : entities(sheet)) erase(id);
    return;
  }
  if (store_->layouts.size() == 2) {
    add_layout(std::string(old.name == first_layout ? "" : first_layout));
  }
  const auto other = std::find_if(store_->layouts.begin() + 1, store_->layouts.end(),
                                  [&](const Layout& layout) { return layout.space != sheet; });
  const SpaceId next = other->space;
  const bool was_active = store_->find_space("*Paper_Space") == sheet;
  if (was_active) swap_sheets(*store_, next);
  mark_erased(*store_, old.record);
  settle_erased(*store_);  // the name is free
  erase_block_records(*store_, sheet);
  std::erase_if(store_->layouts, [&](const Layout& layout) { return layout.space == sheet; });
  if (store_->layouts.back().name.empty()) rename_layout(next, std::string(first_layout));
}

void Drawing::set_header(std::string_view name, int code, std::int32_t value) {
  const RecordId header = store_->landmarks.header;
  if (header == RecordId::none) return;
  const dxf::RecordTags record(store_->bytes(header), store_->format);
  const auto& tags = record.tags();
  std::string bytes;
  std::size_t i = 0;
  while (i < tags.size() && !(tags[i].code == 9 && record.text(tags[i]) == name)) ++i;
  if (i + 1 < tags.size()) {
    const dxf::Tag& tag = tags[i + 1];
    if (dxf::integer_value(record.bytes(), tag, store_->format) == value) return;
    bytes = record.bytes().substr(0, tag.value);
    bytes += dxf::integer_bytes(code, value, store_->format);
    bytes += record.bytes().substr(tag.value_end);
  } else {
    bytes = record.bytes();
    dxf::append_text(bytes, 9, name, store_->format);
    dxf::append_integer(bytes, code, value, store_->format);
  }
  store_->patch(header, std::move(bytes));
}

}  // namespace velmar::drawing
