#include "embedded/linetypes_object.h"

#include "basic/conversion.h"
#include "basic/strings.h"
#include "embedded/names.h"
#include "embedded/record_members.h"

namespace velmar::embedded {
namespace {

using drawing::Drawing;
using drawing::Record;
using drawing::RecordId;

std::optional<RecordId> find(const Drawing& drawing, std::string_view name) {
  for (const RecordId id : LinetypeRows::ids(drawing)) {
    if (basic::equal_ignoring_case(drawing.read_linetype(id).name, name)) return id;
  }
  return std::nullopt;
}

}  // namespace

bool LinetypeRows::exists(const Drawing& drawing, RecordId id) {
  return !drawing.record(id).is(Record::erased);
}

Value LinetypeRows::object(const DocumentPointer& document, RecordId id) {
  return std::make_shared<LinetypeObject>(document, id);
}

RecordId LinetypeRows::named(const Drawing& drawing, const std::string& name) {
  const auto id = find(drawing, name);
  if (!id) throw failure(HostError::key_not_found);
  return *id;
}

RecordId LinetypeRows::add(Drawing& drawing, const std::string& name) {
  if (const auto present = find(drawing, name)) return *present;
  require_valid_name(name);
  return drawing.add_linetype({name, ""});
}

Value LinetypeObject::get(Member member) {
  require_alive();
  switch (member) {
    case Member::Name:
      return linetype_spelling(document_->drawing.read_linetype(id_).name);
    case Member::Description:
      return document_->drawing.read_linetype(id_).description;
    case Member::ObjectName:
      return "AcDbLinetypeTableRecord";
    default:
      break;
  }
  if (auto found = record_member(document_, id_, member)) return std::move(*found);
  throw no_such_member(member);
}

void LinetypeObject::put(Member member, const Value& value) {
  require_alive();
  if (member == Member::Name) throw not_supported("Renaming a linetype");
  if (member != Member::Description) throw no_such_member(member);
  drawing::LinetypeRow row = document_->drawing.read_linetype(id_);
  row.description = basic::convert<std::string>(value);
  document_->drawing.write_linetype(id_, row);
}

Value LinetypeObject::call(Member member, std::span<Value> values) {
  require_alive();
  if (member == Member::GetExtensionDictionary) return extension_dictionary(document_, id_);
  if (member == Member::Delete) throw not_supported("Delete of a linetype");
  return PlainObject::call(member, values);
}

void LinetypeObject::require_alive() const {
  require_open(*document_);
  if (document_->drawing.record(id_).is(Record::erased)) throw failure(HostError::was_erased);
}

}  // namespace velmar::embedded
