#include "embedded/names.h"

#include <algorithm>
#include <array>

#include "basic/strings.h"
#include "embedded/errors.h"

namespace velmar::embedded {
namespace {

using basic::equal_ignoring_case;
using drawing::Drawing;
using drawing::Record;
using drawing::RecordId;

std::optional<std::string> find_row(const Drawing& drawing, std::string_view table,
                                    std::string_view name) {
  for (const std::string& row : drawing.table(table)) {
    if (equal_ignoring_case(row, name)) return row;
  }
  return std::nullopt;
}

}  // namespace

bool exists(const Drawing& drawing, drawing::LayerId layer) {
  const RecordId record = drawing.layer(layer).record;
  if (drawing.layer(layer).undone) return false;
  return record == RecordId::none || !drawing.record(record).is(Record::erased);
}

std::optional<drawing::LayerId> find_layer(const Drawing& drawing, std::string_view name) {
  const auto found = drawing.find_layer(name);
  return found && exists(drawing, *found) ? found : std::nullopt;
}

drawing::LayerId require_layer(const Drawing& drawing, std::string_view name) {
  const auto found = find_layer(drawing, name);
  if (!found) throw failure(HostError::key_not_found);
  return *found;
}

std::string require_row(const Drawing& drawing, std::string_view table, std::string_view name) {
  const auto found = find_row(drawing, table, name);
  if (!found) throw failure(HostError::key_not_found);
  return *found;
}

std::string linetype_spelling(std::string name) {
  if (name == "ByLayer") return name;  // that of most entities
  for (const std::string_view own : {"Continuous", "ByLayer", "ByBlock"}) {
    if (equal_ignoring_case(own, name)) return std::string(own);
  }
  return name;
}

std::string require_linetype(const Drawing& drawing, const std::string& name, LinetypeOf owner) {
  std::string spelled = linetype_spelling(name);
  if (spelled == "Continuous") return spelled;
  const bool by_other = spelled == "ByLayer" || spelled == "ByBlock";
  if (by_other && owner == LinetypeOf::entity) return spelled;
  const auto found = by_other ? std::nullopt : find_row(drawing, "LTYPE", name);
  if (!found) throw failure(HostError::undefined_linetype);
  return *found;
}

std::string require_block(const Drawing& drawing, std::string_view name) {
  const auto found = drawing.find_space(name);
  if (!found || drawing.spaces()[index(*found)].is_layout) {
    throw failure(HostError::key_not_found);
  }
  return drawing.spaces()[index(*found)].name;
}

void require_valid_name(std::string_view name) {
  if (name.empty() || name.find_first_of("<>/\\\":;?*|,=`") != std::string_view::npos) {
    throw failure(HostError::invalid_input);
  }
}

void require_lineweight(std::int32_t weight) {
  static constexpr std::array weights{-3, -2, -1, 0,  5,  9,  13,  15,  18,  20,  25,  30,  35, 40,
                                      50, 53, 60, 70, 80, 90, 100, 106, 120, 140, 158, 200, 211};
  if (!std::ranges::binary_search(weights, weight)) throw failure(HostError::invalid_input);
}

}  // namespace velmar::embedded
