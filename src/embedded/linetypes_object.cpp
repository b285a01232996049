#include "embedded/linetypes_object.h"

#include "basic/conversion.h"
#include "basic/strings.h"
#include "embedded/collection.h"
#include "embedded/document_members.h"
#include "embedded/names.h"
#include "embedded/record_members.h"

namespace velmar::embedded {
namespace {

using drawing::Record;
using drawing::RecordId;

constexpr std::string_view table = "LTYPE";

std::vector<RecordId> rows_of(const drawing::Drawing& drawing) { return drawing.rows(table); }

std::optional<RecordId> find(const drawing::Drawing& drawing, std::string_view name) {
  for (const RecordId id : rows_of(drawing)) {
    if (basic::equal_ignoring_case(drawing.read_linetype(id).name, name)) return id;
  }
  return std::nullopt;
}

}  // namespace

Value LinetypesObject::get(Member member) {
  require_open(*document_);
  if (member == Member::Count) {
    return static_cast<std::int32_t>(rows_of(document_->drawing).size());
  }
  if (auto found = document_member(*document_, member)) return std::move(*found);
  throw no_such_member(member);
}

Value LinetypesObject::call(Member member, std::span<Value> values) {
  require_open(*document_);
  return translated([&]() -> Value {
    drawing::Drawing& drawing = document_->drawing;
    if (member != Member::Item && member != Member::Add) return PlainObject::call(member, values);
    const Arguments arguments(member, values, 1, 1);
    if (member == Member::Item) {
      const auto rows = rows_of(drawing);
      if (const auto at = item_position(arguments, rows.size())) {
        return std::make_shared<LinetypeObject>(document_, rows[*at]);
      }
    }
    const std::string name = arguments.text(0);
    auto id = find(drawing, name);
    if (!id && member == Member::Item) throw failure(HostError::key_not_found);
    if (!id) {
      require_valid_name(name);
      id = drawing.add_linetype({name, ""});
    }
    return std::make_shared<LinetypeObject>(document_, *id);
  });
}

std::unique_ptr<host::Enumerator> LinetypesObject::enumerate() {
  require_open(*document_);
  return walk(rows_of(document_->drawing),
              [document = document_](RecordId id) -> std::optional<Value> {
                if (document->drawing.record(id).is(Record::erased)) return std::nullopt;
                return Value(std::make_shared<LinetypeObject>(document, id));
              });
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
