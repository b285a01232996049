#pragma once

#include <algorithm>
#include <cmath>
#include <vector>

#include "render/painter.h"

namespace velmar::render {

/// Lengths that are drawn (above 0), left out (below 0) and dots (0), again and again.
using DashPattern = std::vector<double>;
double period(const DashPattern& pattern);

/// Where on a line of that length something is drawn.
struct Dash {
  double from = 0, to = 0;
};

/// Gives the dashes of a line that touch a part of it, in their order. The pattern is laid out so
/// that the line begins and ends alike, as drafting programs do: half of what is left over goes to
/// either end. A line too short for one turn of the pattern is drawn through.
class Dashes {
 public:
  Dashes(const DashPattern& pattern, double scale, double length);

  template <class Visit>
  void within(double from, double to, Visit visit) const {
    if (through_) return visit(Dash{from, to});
    const double last = std::min(turns_, std::ceil((to - start_) / period_));
    for (double turn = std::max(0.0, std::floor((from - start_) / period_)); turn <= last; ++turn) {
      double at = start_ + turn * period_;
      for (std::size_t i = 0; i < pattern_.size(); ++i) {
        const double end = at + std::abs(pattern_[i]) * scale_;
        if (pattern_[i] >= 0) show(stretched({at, end}, turn, i), from, to, visit);
        at = end;
      }
    }
  }

 private:
  /// The first dash reaches to the line's beginning, the last one to its end.
  Dash stretched(Dash dash, double turn, std::size_t place) const {
    if (place != 0 || pattern_[0] == 0) return dash;
    if (turn == 0) dash.from = 0;
    if (turn == turns_) dash.to = length_;
    return dash;
  }
  template <class Visit>
  static void show(Dash dash, double from, double to, Visit& visit) {
    if (dash.to < from || dash.from > to) return;
    visit(Dash{std::max(dash.from, from), std::min(dash.to, to)});
  }

  const DashPattern& pattern_;
  double scale_, length_, period_;
  double start_ = 0;  // where the first turn begins
  double turns_ = 0;
  bool through_ = false;
};

}  // namespace velmar::render
