#include "embedded/current_style.h"

#include "basic/conversion.h"
#include "basic/strings.h"
#include "basic/val.h"
#include "embedded/current.h"
#include "embedded/names.h"

namespace velmar::embedded {
namespace {

std::optional<std::string> variable(const DocumentState& document, const std::string& name) {
  const auto set = document.variables.find(name);
  if (set != document.variables.end()) return basic::convert<std::string>(set->second);
  return document.drawing.header("$" + name);
}

double number(const DocumentState& document, const std::string& name, double otherwise) {
  const auto text = variable(document, name);
  return text ? basic::val(*text, basic::TypeCharacter::ignored) : otherwise;
}

std::int32_t color(const DocumentState& document) {
  constexpr std::int32_t by_block = 0, by_layer = 256;
  const auto text = variable(document, "CECOLOR");
  if (!text || basic::equal_ignoring_case(*text, "BYLAYER")) return by_layer;
  if (basic::equal_ignoring_case(*text, "BYBLOCK")) return by_block;
  const double index = basic::val(*text, basic::TypeCharacter::ignored);
  return index >= by_block && index <= by_layer ? basic::to_int32(index) : by_layer;
}

std::string layer(const DocumentState& document) {
  const drawing::LayerId current = current_layer(document);
  const bool is_there = current != drawing::LayerId::none && exists(document.drawing, current);
  return is_there ? document.drawing.layer(current).name : "0";
}

std::string row_or(const DocumentState& document, const std::string& variable_name,
                   std::string_view table, std::string_view otherwise) {
  const auto name = variable(document, variable_name);
  return name && document.drawing.has_row(table, *name) ? *name : std::string(otherwise);
}

}  // namespace

drawing::Common current_common(const DocumentState& document) {
  drawing::Common common;
  common.layer = layer(document);
  common.color = color(document);
  common.linetype = row_or(document, "CELTYPE", "LTYPE", common.linetype);
  const double scale = number(document, "CELTSCALE", 1);
  if (scale > 0) common.linetype_scale = scale;
  return common;
}

std::string current_text_style(const DocumentState& document) {
  return row_or(document, "TEXTSTYLE", "STYLE", "Standard");
}

double current_text_height(const DocumentState& document) {
  const auto row = document.drawing.find_row("STYLE", current_text_style(document));
  const bool has_row = row != drawing::RecordId::none;
  const double fixed = has_row ? document.drawing.read_text_style(row).height : 0;
  const double height = fixed > 0 ? fixed : number(document, "TEXTSIZE", 0.2);
  return height > 0 ? height : 0.2;
}

std::string current_dim_style(const DocumentState& document) {
  const std::vector<std::string> styles = document.drawing.table("DIMSTYLE");
  const bool has_standard = document.drawing.has_row("DIMSTYLE", "Standard");
  return row_or(document, "DIMSTYLE", "DIMSTYLE",
                has_standard || styles.empty() ? "Standard" : styles.front());
}

double current_elevation(const DocumentState& document) { return number(document, "ELEVATION", 0); }

}  // namespace velmar::embedded
