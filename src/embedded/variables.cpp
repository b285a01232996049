#include "embedded/variables.h"

#include <algorithm>
#include <array>
#include <filesystem>

#include "basic/conversion.h"
#include "basic/letter_case.h"
#include "basic/number_text.h"
#include "embedded/answers.h"
#include "embedded/arguments.h"
#include "embedded/current.h"
#include "embedded/current_style.h"
#include "embedded/document_name.h"
#include "embedded/errors.h"
#include "embedded/names.h"

namespace velmar::embedded {
namespace {

using drawing::Point;

std::int16_t truth(bool value) { return value ? 1 : 0; }

Value layer_name(const DocumentState& document) {
  const drawing::LayerId layer = current_layer(document);
  return layer == drawing::LayerId::none ? "0" : document.drawing.layer(layer).name;
}

void set_layer(DocumentState& document, const Value& value) {
  const auto name = basic::convert<std::string>(value);
  const drawing::LayerId layer = require_layer(document.drawing, name);
  if (document.drawing.layer(layer).frozen()) throw failure(HostError::invalid_layer);
  document.current_layer = layer;
}

Value color_name(const DocumentState& document) {
  const std::int32_t color = current_common(document).color;
  if (color == 0) return "BYBLOCK";
  return color == 256 ? "BYLAYER" : basic::general(color);
}

void set_color(DocumentState& document, const Value& value) {
  const auto name = basic::convert<std::string>(value);
  if (!same_word(name, "BYLAYER") && !same_word(name, "BYBLOCK")) {
    const auto index = read_integer(name);
    if (!index || *index < 1 || *index > 255) throw invalid_argument("Value", Member::SetVariable);
  }
  document.variables["CECOLOR"] = name;
}

void set_linetype(DocumentState& document, const Value& value) {
  document.variables["CELTYPE"] =
      require_linetype(document.drawing, basic::convert<std::string>(value), LinetypeOf::entity);
}

void set_linetype_scale(DocumentState& document, const Value& value) {
  const double scale = to_number(value);
  if (scale <= 0) throw invalid_argument("Value", Member::SetVariable);
  document.variables["CELTSCALE"] = scale;
}

void set_text_style(DocumentState& document, const Value& value) {
  document.variables["TEXTSTYLE"] =
      require_row(document.drawing, "STYLE", basic::convert<std::string>(value));
}

Value tile_mode(const DocumentState& document) {
  return truth(current_space(document) == drawing::SpaceId::model);
}

void set_tile_mode(DocumentState& document, const Value& value) {
  const auto mode = basic::convert<std::int16_t>(value);
  if (mode != 0 && mode != 1) throw invalid_argument("Value", Member::SetVariable);
  const drawing::SpaceId paper = paper_space(document.drawing);
  if (mode == 1) return activate_space(document, drawing::SpaceId::model);
  if (paper != drawing::SpaceId::none) return activate_space(document, paper);
  document.variables["TILEMODE"] = mode;
}

Value layout_name(const DocumentState& document) {
  const drawing::SpaceId space = current_space(document);
  for (const drawing::Layout& layout : document.drawing.layouts()) {
    if (layout.space == space) return layout.name;
  }
  return space == drawing::SpaceId::model ? "Model" : "Layout1";
}

Value folder_with_separator(const DocumentState& document) {
  const std::filesystem::path folder = document.drawing.path().parent_path();
  return folder.empty() ? std::string() : (folder / "").string();
}

/// A drawing without extents has the box turned inside out.
drawing::Box extents_or_none(const DocumentState& document) {
  constexpr double none = 1e20;
  return document.drawing.header_extents().value_or(
      drawing::Box{{none, none, none}, {-none, -none, -none}});
}

/// A switch that nothing here depends on: it is only kept.
struct Kept {
  std::string_view name;
  std::int16_t at_first;
};
constexpr std::array kept{Kept{"CMDECHO", 1}, Kept{"EXPERT", 0}, Kept{"FILEDIA", 1},
                          Kept{"OSMODE", 0}};

struct Variable {
  std::string_view name;
  Value (*get)(const DocumentState&);
  void (*set)(DocumentState&, const Value&);  // null: cannot be set
};

constexpr std::array variables{
    Variable{"CECOLOR", color_name, set_color},
    Variable{"CELTSCALE",
             [](const DocumentState& document) -> Value {
               return current_common(document).linetype_scale;
             },
             set_linetype_scale},
    Variable{
        "CELTYPE",
        [](const DocumentState& document) -> Value { return current_common(document).linetype; },
        set_linetype},
    Variable{"CLAYER", layer_name, set_layer},
    Variable{"CTAB", layout_name, nullptr},
    Variable{
        "DBMOD",
        [](const DocumentState& document) -> Value { return truth(document.drawing.is_changed()); },
        nullptr},
    Variable{"DIMSTYLE",
             [](const DocumentState& document) -> Value { return current_dim_style(document); },
             nullptr},
    Variable{"DWGNAME",
             [](const DocumentState& document) -> Value { return document_name(document); },
             nullptr},
    Variable{"DWGPREFIX", folder_with_separator, nullptr},
    Variable{"DWGTITLED",
             [](const DocumentState& document) -> Value {
               return truth(!document.drawing.path().empty());
             },
             nullptr},
    Variable{"ELEVATION",
             [](const DocumentState& document) -> Value { return current_elevation(document); },
             [](DocumentState& document, const Value& value) {
               document.variables["ELEVATION"] = to_number(value);
             }},
    Variable{"EXTMAX",
             [](const DocumentState& document) { return to_value(extents_or_none(document).max); },
             nullptr},
    Variable{"EXTMIN",
             [](const DocumentState& document) { return to_value(extents_or_none(document).min); },
             nullptr},
    Variable{"LASTPOINT",
             [](const DocumentState& document) { return to_value(document.last_point); },
             [](DocumentState& document, const Value& value) {
               document.last_point = to_point(value, "Value", Member::SetVariable);
             }},
    Variable{"TEXTSTYLE",
             [](const DocumentState& document) -> Value { return current_text_style(document); },
             set_text_style},
    Variable{"TILEMODE", tile_mode, set_tile_mode},
};

}  // namespace

Value get_variable(const DocumentState& document, std::string_view name) {
  const std::string upper = basic::upper(name);
  const auto known = std::ranges::find(variables, upper, &Variable::name);
  if (known != variables.end()) return known->get(document);
  const auto only_kept = std::ranges::find(kept, upper, &Kept::name);
  if (only_kept == kept.end()) throw invalid_argument("Name", Member::GetVariable);
  const auto set = document.variables.find(upper);
  return set == document.variables.end() ? Value(only_kept->at_first) : set->second;
}

void set_variable(DocumentState& document, std::string_view name, const Value& value) {
  const std::string upper = basic::upper(name);
  const auto known = std::ranges::find(variables, upper, &Variable::name);
  if (known != variables.end() && known->set) return known->set(document, value);
  if (std::ranges::find(kept, upper, &Kept::name) == kept.end()) {
    throw invalid_argument("Name", Member::SetVariable);
  }
  document.variables[upper] = basic::convert<std::int16_t>(value);
}

}  // namespace velmar::embedded
