#include "embedded/text_styles_object.h"

#include "embedded/collection.h"
#include "embedded/document_members.h"
#include "embedded/names.h"
#include "embedded/text_style_object.h"

namespace velmar::embedded {

using drawing::RecordId;

Value TextStylesObject::get(Member member) {
  require_open(*document_);
  if (member == Member::Count) {
    return static_cast<std::int32_t>(document_->drawing.text_styles().size());
  }
  if (auto found = document_member(*document_, member)) return std::move(*found);
  throw no_such_member(member);
}

Value TextStylesObject::call(Member member, std::span<Value> values) {
  require_open(*document_);
  return translated([&]() -> Value {
    if (member == Member::Item) return item(values);
    if (member == Member::Add) return add(values);
    return PlainObject::call(member, values);
  });
}

std::unique_ptr<host::Enumerator> TextStylesObject::enumerate() {
  require_open(*document_);
  return walk(document_->drawing.text_styles(),
              [document = document_](RecordId id) -> std::optional<Value> {
                if (document->closed) return std::nullopt;
                return Value(std::make_shared<TextStyleObject>(document, id));
              });
}

Value TextStylesObject::style(RecordId id) const {
  return std::make_shared<TextStyleObject>(document_, id);
}

Value TextStylesObject::item(std::span<Value> values) const {
  const Arguments arguments(Member::Item, values, 1, 1);
  const std::vector<RecordId> ids = document_->drawing.text_styles();
  if (const auto position = item_position(arguments, ids.size())) return style(ids[*position]);
  const RecordId id = document_->drawing.find_row("STYLE", arguments.text(0));
  if (id == RecordId::none) throw failure(HostError::key_not_found);
  return style(id);
}

Value TextStylesObject::add(std::span<Value> values) {
  const Arguments arguments(Member::Add, values, 1, 1);
  const std::string name = arguments.text(0);
  require_valid_name(name);
  const RecordId present = document_->drawing.find_row("STYLE", name);
  return style(present != RecordId::none ? present : document_->drawing.add_text_style(name));
}

}  // namespace velmar::embedded
