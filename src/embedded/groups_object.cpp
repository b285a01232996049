#include "embedded/groups_object.h"

#include "basic/strings.h"
#include "embedded/collection.h"
#include "embedded/document_members.h"
#include "embedded/entity_object.h"
#include "embedded/entity_walk.h"
#include "embedded/record_members.h"

namespace velmar::embedded {
namespace {

using drawing::DictionaryEntry;
using drawing::Record;
using drawing::RecordId;

std::vector<DictionaryEntry> groups_of(const drawing::Drawing& drawing) {
  std::vector<DictionaryEntry> groups;
  const RecordId dictionary = drawing.named_dictionary("ACAD_GROUP");
  if (dictionary == RecordId::none) return groups;
  for (DictionaryEntry& entry : drawing.dictionary_entries(dictionary)) {
    const RecordId id = drawing.find(entry.object);
    if (id != RecordId::none && !drawing.record(id).is(Record::erased)) {
      groups.push_back(std::move(entry));
    }
  }
  return groups;
}

Value group(const DocumentPointer& document, const DictionaryEntry& entry) {
  const RecordId id = document->drawing.find(entry.object);
  return std::make_shared<GroupObject>(document, id, entry.name);
}

}  // namespace

Value GroupsObject::get(Member member) {
  require_open(*document_);
  if (member == Member::Count) {
    return static_cast<std::int32_t>(groups_of(document_->drawing).size());
  }
  if (auto found = document_member(*document_, member)) return std::move(*found);
  throw no_such_member(member);
}

Value GroupsObject::call(Member member, std::span<Value> values) {
  require_open(*document_);
  if (member == Member::Add) throw not_supported("Adding a group");
  if (member != Member::Item) return PlainObject::call(member, values);
  const Arguments arguments(member, values, 1, 1);
  const auto groups = groups_of(document_->drawing);
  if (const auto at = item_position(arguments, groups.size())) return group(document_, groups[*at]);
  for (const DictionaryEntry& entry : groups) {
    if (basic::equal_ignoring_case(entry.name, arguments.text(0))) return group(document_, entry);
  }
  throw failure(HostError::key_not_found);
}

std::unique_ptr<host::Enumerator> GroupsObject::enumerate() {
  require_open(*document_);
  return walk(groups_of(document_->drawing),
              [document = document_](const DictionaryEntry& entry) -> std::optional<Value> {
                return group(document, entry);
              });
}

Value GroupObject::get(Member member) {
  require_open(*document_);
  if (member == Member::Count) return static_cast<std::int32_t>(members().size());
  if (member == Member::Name) return name_;
  if (auto found = record_member(document_, id_, member)) return std::move(*found);
  throw no_such_member(member);
}

Value GroupObject::call(Member member, std::span<Value> values) {
  require_open(*document_);
  if (member == Member::GetExtensionDictionary) return extension_dictionary(document_, id_);
  if (member != Member::Item) return PlainObject::call(member, values);
  const std::vector<RecordId> present = members();
  return make_entity(document_, present[Arguments(member, values, 1, 1).index(0, present.size())]);
}

std::unique_ptr<host::Enumerator> GroupObject::enumerate() {
  require_open(*document_);
  return std::make_unique<EntityWalk>(document_, members());
}

std::vector<RecordId> GroupObject::members() const {
  const drawing::Drawing& drawing = document_->drawing;
  std::vector<RecordId> present = drawing.pointed_to(id_);
  std::erase_if(present, [&](RecordId id) {
    return drawing.record(id).is(Record::erased) ||
           drawing.record(id).space == drawing::SpaceId::none;
  });
  return present;
}

}  // namespace velmar::embedded
