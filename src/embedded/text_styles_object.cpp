#include "embedded/text_styles_object.h"

#include "embedded/names.h"
#include "embedded/text_style_object.h"

namespace velmar::embedded {

using drawing::Drawing;
using drawing::RecordId;

bool TextStyleRows::exists(const Drawing& drawing, RecordId id) {
  return !drawing.record(id).is(drawing::Record::erased);
}

Value TextStyleRows::object(const DocumentPointer& document, RecordId id) {
  return std::make_shared<TextStyleObject>(document, id);
}

RecordId TextStyleRows::named(const Drawing& drawing, const std::string& name) {
  const RecordId id = drawing.find_row("STYLE", name);
  if (id == RecordId::none) throw failure(HostError::key_not_found);
  return id;
}

RecordId TextStyleRows::add(Drawing& drawing, const std::string& name) {
  require_valid_name(name);
  const RecordId present = drawing.find_row("STYLE", name);
  return present != RecordId::none ? present : drawing.add_text_style(name);
}

}  // namespace velmar::embedded
