#include "embedded/current.h"

#include "basic/conversion.h"
#include "embedded/answers.h"
#include "embedded/names.h"

namespace velmar::embedded {
namespace {

bool model_is_current(const DocumentState& document) {
  const auto set = document.variables.find("TILEMODE");
  if (set != document.variables.end()) return basic::convert<std::int32_t>(set->second) != 0;
  const auto header = document.drawing.header("$TILEMODE");
  return !header || trimmed(*header) != "0";
}

}  // namespace

drawing::LayerId current_layer(const DocumentState& document) {
  if (document.current_layer && exists(document.drawing, *document.current_layer)) {
    return *document.current_layer;
  }
  const auto header = document.drawing.header("$CLAYER");
  const auto named = header ? document.drawing.find_layer(*header) : std::nullopt;
  return named ? *named : document.drawing.find_layer("0").value_or(drawing::LayerId::none);
}

drawing::SpaceId paper_space(const drawing::Drawing& drawing) {
  if (const auto named = drawing.find_space("*Paper_Space")) return *named;
  for (std::uint32_t i = 1; i < drawing.spaces().size(); ++i) {
    if (drawing.spaces()[i].is_layout) return static_cast<drawing::SpaceId>(i);
  }
  return drawing::SpaceId::none;
}

bool is_sheet(const drawing::Drawing& drawing, drawing::SpaceId space) {
  return space == drawing::SpaceId::model || drawing.spaces()[index(space)].is_layout;
}

drawing::SpaceId current_space(const DocumentState& document) {
  if (model_is_current(document)) return drawing::SpaceId::model;
  const drawing::SpaceId paper = paper_space(document.drawing);
  return paper == drawing::SpaceId::none ? drawing::SpaceId::model : paper;
}

void activate_space(DocumentState& document, drawing::SpaceId space) {
  document.drawing.activate_layout(space);
  // For a file that has no header to say it.
  const std::int16_t tile_mode = space == drawing::SpaceId::model ? 1 : 0;
  document.variables["TILEMODE"] = tile_mode;
}

}  // namespace velmar::embedded
