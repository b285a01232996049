#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/json.h"
#include "drawing/drawing.h"

namespace velmar::cli {

/// Lengths and areas of the entities of one kind on one layer of model space.
struct Sum {
  std::string layer, kind;
  std::size_t count = 0;
  std::optional<double> length, area;  // nothing for kinds that have none
  std::size_t unmeasured = 0;          // with values that cannot be read
};

/// By layer in the order of the table, then by kind. Open curves are closed by a straight line for
/// their area, as the host does.
std::vector<Sum> sums(const drawing::Drawing& drawing);

Json sums_json(std::string_view file, const std::vector<Sum>& sums);
std::string sums_text(std::string_view file, const std::vector<Sum>& sums);
/// With a line of headings where `heading` says so.
std::string sums_csv(std::string_view file, const std::vector<Sum>& sums, bool heading);

}  // namespace velmar::cli
