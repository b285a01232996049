#include "embedded/dim_styles_object.h"

#include "embedded/collection.h"
#include "embedded/document_members.h"
#include "embedded/names.h"
#include "embedded/object_ids.h"

namespace velmar::embedded {

Value DimStyleObject::get(Member member) {
  require_open(*document_);
  const drawing::RecordId row = document_->drawing.find_row("DIMSTYLE", name_);
  switch (member) {
    case Member::Name:
      return name_;
    case Member::ObjectName:
      return "AcDbDimStyleTableRecord";
    case Member::Handle:
      return drawing::handle_text(document_->drawing.record(row).handle);
    case Member::ObjectID:
      return object_id(row);
    default:
      break;
  }
  if (auto found = document_member(*document_, member)) return std::move(*found);
  throw no_such_member(member);
}

void DimStyleObject::put(Member member, const Value&) {
  if (member == Member::Name) throw not_supported("Renaming a dimension style");
  throw no_such_member(member);
}

Value DimStylesObject::get(Member member) {
  require_open(*document_);
  if (member == Member::Count) return static_cast<std::int32_t>(names().size());
  if (auto found = document_member(*document_, member)) return std::move(*found);
  throw no_such_member(member);
}

Value DimStylesObject::call(Member member, std::span<Value> values) {
  require_open(*document_);
  return translated([&]() -> Value {
    if (member == Member::Item) return item(values);
    if (member == Member::Add) return add(values);
    return PlainObject::call(member, values);
  });
}

std::unique_ptr<host::Enumerator> DimStylesObject::enumerate() {
  require_open(*document_);
  return walk(names(), [document = document_](const std::string& name) -> std::optional<Value> {
    if (document->closed || !document->drawing.has_row("DIMSTYLE", name)) return std::nullopt;
    return Value(std::make_shared<DimStyleObject>(document, name));
  });
}

std::vector<std::string> DimStylesObject::names() const {
  return document_->drawing.table("DIMSTYLE");
}

Value DimStylesObject::style(std::string name) const {
  return std::make_shared<DimStyleObject>(document_, std::move(name));
}

Value DimStylesObject::item(std::span<Value> values) const {
  const Arguments arguments(Member::Item, values, 1, 1);
  if (const auto position = item_position(arguments, names().size())) {
    return style(names()[*position]);
  }
  return style(require_row(document_->drawing, "DIMSTYLE", arguments.text(0)));
}

Value DimStylesObject::add(std::span<Value> values) {
  const Arguments arguments(Member::Add, values, 1, 1);
  const std::string name = arguments.text(0);
  drawing::Drawing& drawing = document_->drawing;
  if (!drawing.has_row("DIMSTYLE", name)) {
    require_valid_name(name);
    drawing.add_dim_style(name);
  }
  return style(require_row(drawing, "DIMSTYLE", name));
}

}  // namespace velmar::embedded
