#pragma once

#include <string>
#include <string_view>

#include "cli/json.h"
#include "cli/survey.h"

namespace velmar::cli {

/// The answer of `info --json` for one drawing.
Json info_json(std::string_view file, const Survey& survey);

/// The same for people, some tables under a heading each.
std::string info_text(std::string_view file, const Survey& survey);

std::string layers_text(const std::vector<LayerSurvey>& layers);

/// The answer of `info --check`: "plan.dxf: no faults", or a line for each.
Json faults_json(std::string_view file, const std::vector<drawing::Warning>& faults);
std::string faults_text(std::string_view file, const std::vector<drawing::Warning>& faults,
                        bool binary);

}  // namespace velmar::cli
