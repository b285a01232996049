#include "embedded/text_style_object.h"

#include <array>

#include "basic/conversion.h"
#include "embedded/document_members.h"
#include "embedded/errors.h"
#include "embedded/object_ids.h"
#include "embedded/properties/checks.h"
#include "embedded/properties/table.h"

namespace velmar::embedded {
namespace {

using drawing::TextStyle;
using StyleProperty = Property<TextStyle>;

void put_height(TextStyle& style, const Value& value) {
  const double height = to_number(value);
  if (height < 0) throw failure(HostError::invalid_input);
  style.height = height;
}

/// Kept: the host's limit for styles.
void put_width(TextStyle& style, const Value& value) {
  constexpr double widest = 100;
  const double width = to_number(value);
  if (!(width > 0) || width > widest) throw failure(HostError::invalid_input);
  style.width_factor = width;
}

void put_font_file(TextStyle& style, const Value& value) {
  auto file = basic::convert<std::string>(value);
  if (file.empty()) throw failure(HostError::invalid_input);
  style.font_file = std::move(file);
}

void refuse_name(TextStyle& style, const Value& value) {
  if (basic::convert<std::string>(value) != style.name) {
    throw not_supported("Renaming a text style");
  }
}

constexpr std::array text_style_object_rows{
    StyleProperty{Member::Name, [](const TextStyle& style) -> Value { return style.name; },
                  refuse_name},
    StyleProperty{Member::FontFile, [](const TextStyle& style) -> Value { return style.font_file; },
                  put_font_file},
    StyleProperty{Member::BigFontFile,
                  [](const TextStyle& style) -> Value { return style.big_font_file; },
                  [](TextStyle& style, const Value& value) {
                    style.big_font_file = basic::convert<std::string>(value);
                  }},
    StyleProperty{Member::Height, [](const TextStyle& style) -> Value { return style.height; },
                  put_height},
    StyleProperty{Member::Width, [](const TextStyle& style) -> Value { return style.width_factor; },
                  put_width},
    StyleProperty{Member::ObliqueAngle,
                  [](const TextStyle& style) -> Value { return style.oblique; },
                  [](TextStyle& style, const Value& value) {
                    style.oblique = checked_number(Member::ObliqueAngle, value);
                  }},
    StyleProperty{Member::TextGenerationFlag,
                  [](const TextStyle& style) -> Value { return style.generation; },
                  [](TextStyle& style, const Value& value) {
                    style.generation = checked_integer(Member::TextGenerationFlag, value);
                  }},
};

const StyleProperty* find(Member member) {
  return find_row(std::span<const StyleProperty>(text_style_object_rows), member);
}

}  // namespace

Value TextStyleObject::get(Member member) {
  return translated([&]() -> Value {
    require_open(*document_);
    const drawing::Drawing& drawing = document_->drawing;
    if (const auto* row = find(member)) return row->get(drawing.read_text_style(id_));
    switch (member) {
      case Member::Handle:
        return drawing::handle_text(drawing.record(id_).handle);
      case Member::ObjectName:
        return drawing.object_name(id_);
      case Member::ObjectID:
        return object_id(id_);
      default:
        break;
    }
    if (auto found = document_member(*document_, member)) return std::move(*found);
    throw no_such_member(member);
  });
}

void TextStyleObject::put(Member member, const Value& value) {
  translated([&] {
    require_open(*document_);
    const auto* row = find(member);
    if (!row) throw no_such_member(member);
    TextStyle style = document_->drawing.read_text_style(id_);
    row->put(style, value);
    document_->drawing.write_text_style(id_, style);
  });
}

Value TextStyleObject::call(Member member, std::span<Value> values) {
  require_open(*document_);
  if (member == Member::Delete || member == Member::Erase) {
    throw not_supported("Deleting a text style");
  }
  return PlainObject::call(member, values);
}

}  // namespace velmar::embedded
