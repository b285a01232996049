#include "embedded/dictionary_object.h"

#include "basic/strings.h"
#include "embedded/collection.h"
#include "embedded/document_members.h"
#include "embedded/objects.h"
#include "embedded/record_members.h"

namespace velmar::embedded {

using drawing::DictionaryEntry;
using drawing::Record;
using drawing::RecordId;

Value DictionaryObject::get(Member member) {
  require_alive();
  if (member == Member::Count) return static_cast<std::int32_t>(entries().size());
  if (member == Member::Name) return name();
  if (auto found = record_member(document_, id_, member)) return std::move(*found);
  throw no_such_member(member);
}

Value DictionaryObject::call(Member member, std::span<Value> values) {
  require_alive();
  if (member == Member::GetExtensionDictionary) return extension_dictionary(document_, id_);
  if (member != Member::Item) return PlainObject::call(member, values);
  const Arguments arguments(member, values, 1, 1);
  const auto present = entries();
  const drawing::Drawing& drawing = document_->drawing;
  if (const auto position = item_position(arguments, present.size())) {
    return make_object(document_, drawing.find(present[*position].object));
  }
  for (const DictionaryEntry& entry : present) {
    if (basic::equal_ignoring_case(entry.name, arguments.text(0))) {
      return make_object(document_, drawing.find(entry.object));
    }
  }
  throw failure(HostError::key_not_found);
}

std::unique_ptr<host::Enumerator> DictionaryObject::enumerate() {
  require_alive();
  return walk(entries(),
              [document = document_](const DictionaryEntry& entry) -> std::optional<Value> {
                const RecordId id = document->drawing.find(entry.object);
                if (document->drawing.record(id).is(Record::erased)) return std::nullopt;
                return make_object(document, id);
              });
}

void DictionaryObject::require_alive() const {
  require_open(*document_);
  const bool is_erased = id_ != RecordId::none && document_->drawing.record(id_).is(Record::erased);
  if (is_erased) throw failure(HostError::was_erased);
}

std::vector<DictionaryEntry> DictionaryObject::entries() const {
  if (id_ == RecordId::none) return {};
  const drawing::Drawing& drawing = document_->drawing;
  std::vector<DictionaryEntry> present = drawing.dictionary_entries(id_);
  std::erase_if(present, [&](const DictionaryEntry& entry) {
    const RecordId object = drawing.find(entry.object);
    return object == RecordId::none || drawing.record(object).is(Record::erased);
  });
  return present;
}

/// A dictionary has its name in the one it stands in; extension dictionaries have none.
std::string DictionaryObject::name() const {
  if (id_ == RecordId::none) return "";
  const drawing::Drawing& drawing = document_->drawing;
  const RecordId owner = drawing.find(drawing.owner(id_));
  if (owner == RecordId::none || drawing.record(owner).kind != drawing::Kind::dictionary) return "";
  for (const DictionaryEntry& entry : drawing.dictionary_entries(owner)) {
    if (entry.object == drawing.record(id_).handle) return entry.name;
  }
  return "";
}

}  // namespace velmar::embedded
