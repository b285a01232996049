#include "render/dashing.h"

#include <cmath>

namespace velmar::render {

double period(const DashPattern& pattern) {
  double sum = 0;
  for (const double length : pattern) sum += std::abs(length);
  return sum;
}

Dashes::Dashes(const DashPattern& pattern, double scale, double length)
    : pattern_(pattern), scale_(scale), length_(length), period_(period(pattern) * scale) {
  turns_ = std::floor(length / period_);
  constexpr double most_turns = 1e15;  // a double cannot count far beyond
  through_ = pattern.empty() || !(turns_ >= 1) || !(turns_ <= most_turns);
  if (through_) return;
  // The line begins in the first dash, so far from that dash's end, and ends as far within it.
  const double dash = std::abs(pattern[0]) * scale;
  const double end_piece = (length - turns_ * period_ + dash) / 2;
  start_ = end_piece - dash;
}

}  // namespace velmar::render
