#include <algorithm>
#include <string>
#include <vector>

#include "basic/rounding.h"
#include "component/conventions.h"
#include "component/session.h"
#include "component/velmar16.h"

namespace velmar {
namespace {

using host::Box;
using host::Entity;
using host::Point;

Point centre_of(Velmar16& velmar, const Box& box) {
  Value min_x = box.min.x, max_x = box.max.x, min_y = box.min.y, max_y = box.max.y;
  return {velmar.Avr(min_x, max_x), velmar.Avr(min_y, max_y), 0};
}

/// Finds the lowest row and the leftmost column of points.
class RowsAndColumns {
 public:
  void add(const Point& point) {
    points_.push_back(point);
    // Kept: a minimum is rounded, so that a point that lies higher can become the next one.
    if (point.y < lowest_) lowest_ = basic::round(point.y);
    if (point.x < leftmost_) leftmost_ = basic::round(point.x);
  }
  auto in_lowest_row() const {
    return std::ranges::count(points_, lowest_, [](const Point& p) { return basic::round(p.y); });
  }
  auto in_leftmost_column() const {
    return std::ranges::count(points_, leftmost_, [](const Point& p) { return basic::round(p.x); });
  }

 private:
  std::vector<Point> points_;
  double lowest_ = 100'000, leftmost_ = 100'000;
};

void mark(Velmar16& velmar, const Point& centre) {
  constexpr double radius = 40;
  constexpr std::int32_t white = 7;
  std::string layer = "Eng-STAGGERED";
  std::int32_t no_colour = 0;
  const host::Circle circle = model_space().AddCircle(centre, radius);
  circle.Color(white);
  velmar.MLayer(layer, no_colour);
  circle.Layer(layer);
  circle.Handle();  // Kept: read for nothing, but a host may refuse it.
}

}  // namespace

Empty Velmar16::Replace(std::string& LayerName, bool& CirVis) {
  GetNTypeLayer("PL", LayerName);  // fails where they are too many to be counted
  RowsAndColumns centres;
  for (const Entity& candidate : model_space()) {
    if (!candidate.has_class(host::LightweightPolyline::class_name)) continue;
    if (!candidate.is_on(LayerName)) continue;
    const Entity polyline = active_document().HandleToObject(candidate.Handle());
    const Point centre = centre_of(*this, polyline.GetBoundingBox());
    centres.add(centre);
    if (CirVis) mark(*this, centre);
  }
  // Kept: counted, and told nobody.
  [[maybe_unused]] const auto in_row = centres.in_lowest_row();
  [[maybe_unused]] const auto in_column = centres.in_leftmost_column();
  return {};
}

}  // namespace velmar
