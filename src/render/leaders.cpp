#include "render/leaders.h"

#include "drawing/dimension/overrides.h"
#include "drawing/dimension/styles.h"
#include "render/curves.h"

namespace velmar::render {
namespace {

double arrow_size(const drawing::Drawing& drawing, drawing::RecordId id) {
  constexpr int style_code = 3;
  drawing::DimVariables variables =
      drawing::style_variables(drawing, drawing.row_text(id, style_code));
  take_overrides(drawing::overrides_in(drawing.read_xdata(id)), variables);
  return variables.arrow_size * variables.factor();
}

}  // namespace

Chain arrow(Point tip, Point next, double size) {
  const Point way = next - tip;
  const double length = norm(way);
  if (!(size > 0) || length < 2 * size) return {};
  const Point along = way * (size / length);
  constexpr double slimness = 1.0 / 6;
  const Point aside = Point{-along.y, along.x, 0} * slimness;
  return {tip, tip + along + aside, tip + along - aside};
}

void draw_leader(const drawing::Drawing& drawing, drawing::RecordId id,
                 const drawing::Leader& leader, const Canvas& canvas, const Look& look) {
  const bool bent = leader.is_spline != 0;
  canvas.curve(bent ? smooth(leader.vertices) : leader.vertices, look);
  if (leader.has_arrow == 0 || leader.vertices.size() < 2) return;
  const Chain tip = arrow(leader.vertices[0], leader.vertices[1], arrow_size(drawing, id));
  if (!tip.empty()) canvas.area({tip}, look.ink);
}

}  // namespace velmar::render
