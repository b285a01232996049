#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "drawing/drawing.h"

namespace velmar::cli {

/// DXF kind names with their numbers, the most frequent first.
using KindCounts = std::vector<std::pair<std::string, std::size_t>>;

struct LayerSurvey {
  drawing::LayerRow row;
  KindCounts entities;  // of model space
};

struct LayoutSurvey {
  std::string name;
  std::int32_t tab = 0;
  std::size_t entities = 0;
};

struct BlockSurvey {
  std::string name;
  std::size_t entities = 0;
  bool xref = false;
  std::size_t inserts = 0;  // block references to it, in all spaces
};

/// What a drawing holds, in numbers.
struct Survey {
  std::string version, code_page;  // no code page: empty
  bool binary = false;
  std::size_t records = 0;
  KindCounts entities;  // of model space
  std::vector<LayerSurvey> layers;
  std::vector<LayoutSurvey> layouts;
  std::vector<BlockSurvey> blocks;  // without the spaces of layouts
  std::optional<drawing::Box> extents;
  std::vector<drawing::Warning> warnings;
};

Survey survey(const drawing::Drawing& drawing);

std::vector<LayerSurvey> survey_layers(const drawing::Drawing& drawing);

}  // namespace velmar::cli
