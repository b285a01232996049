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

}  // namespace velmar::cli
