#include <charconv>
#include <concepts>

#include "drawing/drawing.h"
#include "drawing/dxf/field_reader.h"
#include "drawing/dxf/field_writer.h"
#include "drawing/store.h"
#include "drawing/table_rows.h"
#include "drawing/tolerance_style.h"

namespace velmar::drawing {
namespace {

constexpr std::int32_t bold_flag = 0x2000000, italic_flag = 0x1000000;
constexpr std::string_view family_application = "ACAD";

/// 1001 ACAD, 1000 the family, 1071 its character set, pitch and face.
void read_family(const XData& data, TextStyle& style) {
  bool ours = false;
  for (const auto& [code, value] : data) {
    if (code == 1001) ours = value == family_application;
    if (!ours) continue;
    if (code == 1000) style.family = value;
    if (code != 1071) continue;
    std::int32_t face = 0;
    const std::size_t begin = value.find_first_not_of(' ');
    if (begin == value.npos) continue;
    std::from_chars(value.data() + begin, value.data() + value.size(), face);
    style.bold = (face & bold_flag) != 0;
    style.italic = (face & italic_flag) != 0;
  }
}

FontName font_name(const TextStyle& style) {
  // A family alone is a TrueType font without a file.
  const bool no_file = style.font_file.empty() && !style.family.empty();
  return {no_file ? std::string() : style.font_file, style.family, style.bold, style.italic};
}

std::string written(const Store& store, std::string_view bytes, const TextStyle& style) {
  const dxf::RecordTags record(bytes, store.format);
  dxf::FieldWriter writer(record);
  fields(writer, const_cast<TextStyle&>(style));
  return writer.result();
}

/// Values that are no numbers keep their defaults; the first of them is told.
TextStyle read_style(const Store& store, RecordId id, std::optional<dxf::Problem>& problem) {
  TextStyle style;
  const dxf::RecordTags record(store.bytes(id), store.format);
  dxf::FieldReader reader(record);
  fields(reader, style);
  problem = reader.problem();
  return style;
}

}  // namespace

std::vector<RecordId> Drawing::text_styles() const {
  std::vector<RecordId> ids;
  for (const TableRow& row : store_->rows) {
    if (row.table == "STYLE" && !row.name.empty()) ids.push_back(row.record);
  }
  return ids;
}

TextStyle Drawing::read_text_style(RecordId id) const {
  std::optional<dxf::Problem> problem;
  TextStyle style = read_style(*store_, id, problem);
  if (problem) {
    throw Error(store_->where(id, problem->offset) + ": " + problem->text);
  }
  read_family(read_xdata(id), style);
  return style;
}

void Drawing::write_text_style(RecordId id, const TextStyle& style) {
  const TextStyle before = read_text_style(id);
  std::string bytes = written(*store_, store_->bytes(id), style);
  if (bytes != store_->bytes(id)) store_->patch(id, std::move(bytes));
  // The family goes with the file: of another file it says nothing.
  if (style.font_file != before.font_file && !before.family.empty()) {
    write_xdata(id, {{1001, std::string(family_application)}});
  }
  store_->looks.clear();
}

RecordId Drawing::add_text_style(const std::string& name) {
  const RecordId id = add_table_row(*store_, "STYLE", "AcDbTextStyleTableRecord");
  if (id == RecordId::none) throw Error(store_->name + ": the file has no table of text styles");
  TextStyle style;
  style.name = name;
  std::string& bytes = store_->patches.at(static_cast<std::uint32_t>(id));
  bytes = written(*store_, bytes, style);
  store_->rows.push_back({"STYLE", name, id});
  if (!read_text_style(id).family.empty()) {
    write_xdata(id, {{1001, std::string(family_application)}});
  }
  store_->looks.clear();
  return id;
}

void Drawing::apply_style(Body& body) const {
  std::visit(
      [this]<class Kind>(Kind& kind) {
        if constexpr (std::derived_from<Kind, Text>) kind.font = look(kind.style).font;
        if constexpr (std::same_as<Kind, MText>) kind.look = look(kind.style);
        if constexpr (std::same_as<Kind, Tolerance>) apply_dimension_style(*store_, *this, kind);
      },
      body);
}

TextLook Drawing::look(std::string_view style) const {
  const auto known = store_->looks.find(std::string(style));
  if (known != store_->looks.end()) return known->second;
  TextLook look;
  const RecordId row = find_row("STYLE", style);
  TextStyle found;
  if (row != RecordId::none) {
    std::optional<dxf::Problem> ignored;  // it does not keep texts from being read
    found = read_style(*store_, row, ignored);
    read_family(read_xdata(row), found);
  }
  look.font = store_->fonts->font(font_name(found));
  look.fonts = store_->fonts;
  look.width_factor = found.width_factor > 0 ? found.width_factor : 1;
  look.oblique = found.oblique;
  store_->looks.emplace(style, look);
  return look;
}

}  // namespace velmar::drawing
