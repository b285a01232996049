#include "drawing/dictionaries.h"

#include "drawing/dxf/record_tags.h"
#include "drawing/references.h"

namespace velmar::drawing {
namespace {

bool is_entry(const dxf::RecordTags& record, std::size_t name) {
  const auto& tags = record.tags();
  if (tags[name].code != 3 || name + 1 >= record.xdata()) return false;
  const Reference kind = reference_of(tags[name + 1].code);
  return kind == Reference::soft_owner || kind == Reference::hard_owner;
}

}  // namespace

RecordId root_dictionary(const Store& store) {
  for (std::uint32_t i = 0; i < store.records.size(); ++i) {
    const Record& record = store.records[i];
    if (record.kind == Kind::dictionary && !record.is(Record::erased)) {
      return static_cast<RecordId>(i);
    }
  }
  return RecordId::none;
}

RecordId named_dictionary(const Store& store, std::string_view name) {
  const RecordId root = root_dictionary(store);
  return root == RecordId::none ? root : dictionary_item(store, root, name);
}

std::vector<DictionaryEntry> dictionary_entries(const Store& store, RecordId dictionary) {
  const dxf::RecordTags record(store.bytes(dictionary), store.format);
  std::vector<DictionaryEntry> entries;
  for (std::size_t i = 0; i < record.xdata(); ++i) {
    if (!is_entry(record, i)) continue;
    entries.push_back({dxf::text_value(record.bytes(), record.tags()[i], store.format),
                       parse_handle(record.text(record.tags()[i + 1]))});
  }
  return entries;
}

RecordId dictionary_item(const Store& store, RecordId dictionary, std::string_view name) {
  for (const DictionaryEntry& entry : dictionary_entries(store, dictionary)) {
    if (!same_name(entry.name, name)) continue;
    const RecordId item = store.find(entry.object);
    if (item != RecordId::none && !store.at(item).is(Record::erased)) return item;
  }
  return RecordId::none;
}

void add_entry(Store& store, RecordId dictionary, std::string_view name, Handle object) {
  const dxf::RecordTags record(store.bytes(dictionary), store.format);
  int code = 350;
  for (std::size_t i = 0; i < record.xdata(); ++i) {
    if (is_entry(record, i)) code = record.tags()[i + 1].code;
  }
  std::string bytes(record.bytes().substr(0, record.xdata_offset()));
  dxf::append_text(bytes, 3, name, store.format);
  dxf::append_text(bytes, code, handle_text(object), store.format);
  bytes += record.bytes().substr(record.xdata_offset());
  store.patch(dictionary, std::move(bytes));
}

void rename_entry(Store& store, RecordId dictionary, Handle object, std::string_view name) {
  const dxf::RecordTags record(store.bytes(dictionary), store.format);
  for (std::size_t i = 0; i < record.xdata(); ++i) {
    if (!is_entry(record, i) || parse_handle(record.text(record.tags()[i + 1])) != object) continue;
    const dxf::Tag& tag = record.tags()[i];
    std::string bytes(record.bytes().substr(0, tag.value));
    bytes += dxf::text_bytes(name, store.format);
    bytes += record.bytes().substr(tag.value_end);
    return store.patch(dictionary, std::move(bytes));
  }
}

}  // namespace velmar::drawing
