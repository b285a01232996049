#include "drawing/hatch_lines.h"

#include <algorithm>
#include <cmath>

#include "drawing/error.h"

namespace velmar::drawing {
namespace {

/// A place where the way round a loop crosses the pattern line of that number.
struct Crossing {
  double line;
  double along;
};

/// The plane seen along the lines of a family: x along them from the base point, y across.
class Family {
 public:
  explicit Family(const PatternLine& line)
      : line_(line), cos_(std::cos(line.angle)), sin_(std::sin(line.angle)) {
    shift_ = direction(line.offset);
    for (const double dash : line.dashes) period_ += std::abs(dash);
  }

  Point seen(Point p) const { return direction(p - line_.base); }
  Point place(double number, double along) const {
    const double x = along, y = number * shift_.y;
    return line_.base + Point{x * cos_ - y * sin_, x * sin_ + y * cos_, 0};
  }
  double step() const { return shift_.y; }
  double period() const { return period_; }
  /// Where on the line of that number its first dash begins.
  double phase(double number) const { return number * shift_.x; }
  const std::vector<double>& dashes() const { return line_.dashes; }

 private:
  Point direction(Point v) const { return {v.x * cos_ + v.y * sin_, v.y * cos_ - v.x * sin_, 0}; }

  const PatternLine& line_;
  double cos_, sin_;
  Point shift_;
  double period_ = 0;
};

class Filling {
 public:
  Filling(const Hatch& hatch, std::size_t at_most) : at_most_(at_most) {
    const std::vector<int> depths = loop_depths(hatch);
    for (std::size_t i = 0; i < depths.size(); ++i) {
      const bool counts = hatch.style == Hatch::normal_style ||
                          depths[i] <= (hatch.style == Hatch::outer_style ? 1 : 0);
      if (counts) loops_.push_back(flatten(hatch.loops[i]));
    }
  }

  void add(const PatternLine& line) {
    const Family family(line);
    std::vector<Crossing> crossings = crossings_of(family);
    std::ranges::sort(crossings, [](const Crossing& a, const Crossing& b) {
      return a.line != b.line ? a.line < b.line : a.along < b.along;
    });
    for (std::size_t i = 0; i + 1 < crossings.size(); i += 2) {
      const Crossing &in = crossings[i], &out = crossings[i + 1];
      if (in.line == out.line) add_piece(family, in.line, in.along, out.along);
    }
  }

  std::vector<HatchSegment> segments;

 private:
  /// Calls `visit(a, b, from, to)` for each edge of the loops: its ends as the family sees them,
  /// and how many lines they are above the first one.
  template <class Visit>
  void each_edge(const Family& family, Visit visit) const {
    for (const std::vector<Point>& loop : loops_) {
      for (std::size_t i = 1; i < loop.size(); ++i) {
        const Point a = family.seen(loop[i - 1]), b = family.seen(loop[i]);
        visit(a, b, a.y / family.step(), b.y / family.step());
      }
    }
  }

  /// A loop crosses a line an even number of times: an edge counts its lower end, not its upper
  /// one.
  std::vector<Crossing> crossings_of(const Family& family) const {
    constexpr double farthest = 1e15;  // a double cannot count lines far beyond
    double count = 0;
    each_edge(family, [&](Point, Point, double from, double to) {
      if (!(std::max(std::abs(from), std::abs(to)) <= farthest)) throw too_far();
      count += std::ceil(std::max(from, to)) - std::ceil(std::min(from, to));
    });
    if (!(count <= 2 * static_cast<double>(at_most_))) throw too_dense();
    std::vector<Crossing> crossings;
    each_edge(family, [&](Point a, Point b, double from, double to) {
      const double end = std::ceil(std::max(from, to));
      for (double line = std::ceil(std::min(from, to)); line < end; ++line) {
        crossings.push_back({line, a.x + (b.x - a.x) * ((line - from) / (to - from))});
      }
    });
    return crossings;
  }

  void add_piece(const Family& family, double number, double from, double to) {
    if (!(family.period() > 0)) return add(family, number, from, to);
    const double phase = family.phase(number);
    double at = phase + std::floor((from - phase) / family.period()) * family.period();
    const double pieces = (to - at) / family.period() * static_cast<double>(family.dashes().size());
    if (!(pieces <= static_cast<double>(at_most_))) throw too_dense();
    const double whole_turns = std::ceil((to - at) / family.period());
    for (double turn = 0; turn < whole_turns; ++turn) {
      for (const double dash : family.dashes()) {
        const double start = std::max(at, from), end = std::min(at + std::abs(dash), to);
        if (dash >= 0 && start <= end) add(family, number, start, end);
        at += std::abs(dash);
      }
    }
  }

  void add(const Family& family, double number, double from, double to) {
    if (segments.size() >= at_most_) throw too_dense();
    segments.push_back({family.place(number, from), family.place(number, to)});
  }

  Error too_dense() const {
    return Error("the hatch pattern is too dense: more than " + std::to_string(at_most_) +
                 " pieces of lines");
  }

  Error too_far() const {
    return Error(
        "the hatch pattern has no lines here: its lines have no distance, or the hatch is "
        "too far from their base point");
  }

  std::size_t at_most_;
  std::vector<std::vector<Point>> loops_;
};

}  // namespace

std::vector<HatchSegment> hatch_lines(const Hatch& hatch, std::size_t at_most) {
  Filling filling(hatch, at_most);
  if (hatch.is_solid()) return {};
  for (const PatternLine& line : hatch.lines) filling.add(line);
  return std::move(filling.segments);
}

}  // namespace velmar::drawing
