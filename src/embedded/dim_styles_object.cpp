#include "embedded/dim_styles_object.h"

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

bool DimStyleRows::exists(const drawing::Drawing& drawing, const std::string& name) {
  return drawing.has_row("DIMSTYLE", name);
}

Value DimStyleRows::object(const DocumentPointer& document, const std::string& name) {
  return std::make_shared<DimStyleObject>(document, name);
}

std::string DimStyleRows::named(const drawing::Drawing& drawing, const std::string& name) {
  return require_row(drawing, "DIMSTYLE", name);
}

std::string DimStyleRows::add(drawing::Drawing& drawing, const std::string& name) {
  if (!exists(drawing, name)) {
    require_valid_name(name);
    drawing.add_dim_style(name);
  }
  return named(drawing, name);
}

}  // namespace velmar::embedded
