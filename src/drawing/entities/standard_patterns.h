#pragma once

#include <algorithm>
#include <array>
#include <initializer_list>
#include <span>
#include <string_view>

namespace velmar::drawing {

/// A line of a pattern as pattern files (.pat) define it: angle in degrees, base point, offset
/// along the line and across it, dashes. Lengths in inches; of the patterns of ISO and GOST, which
/// do not follow the drawing's units, in millimetres.
struct PatternRow {
  static constexpr std::size_t most_dashes = 8;

  std::string_view name;
  double angle, x, y, along, across;
  std::array<double, most_dashes> dash{};
  std::size_t dash_count;

  constexpr PatternRow(std::string_view of, double direction, double base_x, double base_y,
                       double offset_along, double offset_across,
                       std::initializer_list<double> list)
      : name(of),
        angle(direction),
        x(base_x),
        y(base_y),
        along(offset_along),
        across(offset_across),
        dash_count(list.size()) {
    std::ranges::copy(list, dash.begin());
  }

  std::span<const double> dashes() const { return {dash.data(), dash_count}; }
  bool is_metric() const { return name.starts_with("ACAD_ISO") || name.starts_with("GOST"); }
};

/// The lines of all standard patterns, those of one pattern together.
std::span<const PatternRow> standard_pattern_rows();

}  // namespace velmar::drawing
