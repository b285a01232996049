#include "render/units.h"

#include <array>
#include <cstdlib>

namespace velmar::render {
namespace {

constexpr double inch = 25.4;
/// $INSUNITS from 1 on: inches, feet, miles, millimetres, centimetres, metres, kilometres,
/// microinches, mils, yards, angstroms, nanometres, microns, decimetres.
constexpr std::array<double, 14> units{inch,        304.8,       1609344, 1,    10,   1000, 1e6,
                                       inch * 1e-6, inch * 1e-3, 914.4,   1e-7, 1e-6, 1e-3, 100};

double header_number(const drawing::Drawing& drawing, std::string_view name) {
  const auto text = drawing.header(name);
  return text ? std::strtod(text->c_str(), nullptr) : 0;
}

/// As its page setup plots it: so many inches or millimetres to so many units.
double sheet_unit(const drawing::Drawing& drawing, drawing::RecordId layout) {
  constexpr int paper_units_code = 72, plotted_code = 142, units_code = 143;
  const auto number = [&](int code) {
    return std::strtod(drawing.row_text(layout, code).c_str(), nullptr);
  };
  const double plotted = number(plotted_code), shown = number(units_code);
  const double scale = plotted > 0 && shown > 0 ? plotted / shown : 1;
  return scale * (number(paper_units_code) == 0 ? inch : 1);
}

}  // namespace

double millimetres_per_unit(const drawing::Drawing& drawing, drawing::SpaceId space) {
  for (const drawing::Layout& layout : drawing.layouts()) {
    const bool is_sheet = layout.space == space && space != drawing::SpaceId::model;
    if (!is_sheet || layout.record == drawing::RecordId::none) continue;
    return sheet_unit(drawing, layout.record);
  }
  const double number = header_number(drawing, "$INSUNITS");
  if (number >= 1 && number <= units.size()) return units[static_cast<std::size_t>(number) - 1];
  return header_number(drawing, "$MEASUREMENT") == 1 ? 1 : inch;
}

}  // namespace velmar::render
