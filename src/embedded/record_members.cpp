#include "embedded/record_members.h"

#include "embedded/dictionary_object.h"
#include "embedded/document_members.h"
#include "embedded/errors.h"
#include "embedded/object_ids.h"

namespace velmar::embedded {

using drawing::RecordId;

std::optional<Value> record_member(const DocumentPointer& document, RecordId id, Member member) {
  const drawing::Drawing& drawing = document->drawing;
  const bool is_there = id != RecordId::none;
  switch (member) {
    case Member::Handle:
      return drawing::handle_text(is_there ? drawing.record(id).handle : 0);
    case Member::ObjectName:
      return is_there ? Value(drawing.object_name(id)) : Value("");
    case Member::ObjectID:
      return object_id(id);
    case Member::OwnerID:
      return is_there ? object_id(drawing.find(drawing.owner(id))) : 0;
    case Member::HasExtensionDictionary:
      return is_there && drawing.has_extension_dictionary(id);
    default:
      return document_member(*document, member);
  }
}

Value extension_dictionary(const DocumentPointer& document, RecordId id) {
  const RecordId found = id == RecordId::none ? id : document->drawing.extension_dictionary(id);
  if (found == RecordId::none) {
    throw not_supported("GetExtensionDictionary of an object that has none");
  }
  return std::make_shared<DictionaryObject>(document, found);
}

}  // namespace velmar::embedded
