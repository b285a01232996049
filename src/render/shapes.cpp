#include "render/shapes.h"

#include <cmath>

#include "drawing/geometry/ocs.h"
#include "render/curves.h"

namespace velmar::render {
namespace {

using drawing::Matrix;
using drawing::Polyline;

/// The faces of a polyface mesh name their corners by numbers of vertices, which the drawing does
/// not keep: its places alone are shown. Of a polygon mesh neither numbers of rows are kept.
constexpr std::int32_t mesh_flags = Polyline::mesh_flag | Polyline::polyface_flag;
constexpr std::int32_t pattern_goes_on_flag = 128;

struct Shape {
  const Canvas& canvas;
  const Look& look;
  const PointStyle& points;

  /// Anything that has no shape of its own here.
  template <class Other>
  void operator()(const Other&) const {}

  void operator()(const drawing::Line& line) const {
    extruded({line.start, line.end}, line.thickness, line.normal);
  }
  void operator()(const drawing::Circle& circle) const {
    round(drawing::circular(circle.center, circle.radius, circle.normal), circle.thickness,
          circle.normal);
  }
  void operator()(const drawing::Arc& arc) const {
    round(drawing::circular(arc.center, arc.radius, arc.normal, arc.start_angle, total_angle(arc)),
          arc.thickness, arc.normal);
  }
  void operator()(const drawing::Ellipse& ellipse) const {
    canvas.curve(chain_of({ellipse.center, ellipse.major_axis, minor_axis(ellipse),
                           ellipse.start_parameter, sweep(ellipse)},
                          canvas),
                 look);
  }
  void operator()(const drawing::LwPolyline& polyline) const {
    std::vector<drawing::BulgeVertex> vertices = polyline.vertices;
    if (polyline.constant_width > 0) {
      for (auto& vertex : vertices) {
        vertex.start_width = vertex.end_width = polyline.constant_width;
      }
    }
    way(vertices, polyline.flags, polyline.elevation, polyline.thickness, polyline.normal);
  }
  void operator()(const Polyline& polyline) const {
    if (polyline.is_2d()) {
      return way(drawing::curve(polyline), polyline.flags, polyline.elevation_point.z,
                 polyline.thickness, polyline.normal);
    }
    if ((polyline.flags & mesh_flags) == 0) return canvas.curve(outline(polyline), look);
    for (const Point& place : outline(polyline)) canvas.line({place}, look);
  }
  void operator()(const drawing::Solid& solid) const { canvas.area({outline(solid)}, look.ink); }
  void operator()(const drawing::Face& face) const {
    for (std::size_t i = 0; i < 4; ++i) {
      const bool hidden = (face.invisible_edges >> i & 1) != 0;
      const Point &from = face.corners[i], &to = face.corners[(i + 1) % 4];
      if (!hidden && from != to) canvas.curve({from, to}, look);
    }
  }
  void operator()(const drawing::Spline& spline) const {
    const Chain chain = outline(spline);
    canvas.curve(chain.empty() ? smooth(spline.fit_points) : chain, look);
  }
  void operator()(const drawing::Ray& ray) const { endless(ray, 0); }
  void operator()(const drawing::Xline& line) const { endless(line, -1); }
  void operator()(const drawing::Region& region) const {
    for (const Chain& chain : outlines(region)) canvas.curve(chain, look);
  }
  void operator()(const drawing::OleFrame& frame) const {
    Chain chain = outline(frame);
    if (!chain.empty() && chain.front() != chain.back()) chain.push_back(chain.front());
    canvas.line(chain, look);
  }
  void operator()(const drawing::PointMark& mark) const;

 private:
  void round(const drawing::Conic& conic, double thickness, Point normal) const {
    extruded(chain_of(conic, canvas), thickness, normal);
  }
  /// With its copy at the other end of its thickness.
  void extruded(const Chain& chain, double thickness, Point normal) const {
    canvas.curve(chain, look);
    const Point up = drawing::unit_normal(normal) * thickness;
    const Point rise = canvas.place().direction(up);
    if (thickness == 0 || std::abs(rise.x) + std::abs(rise.y) < 0.5) return;
    Chain other = chain;
    for (Point& p : other) p = p + up;
    canvas.curve(other, look);
    canvas.curve({chain.front(), other.front()}, look);
    canvas.curve({chain.back(), other.back()}, look);
  }
  void way(const std::vector<drawing::BulgeVertex>& vertices, std::int32_t flags, double elevation,
           double thickness, Point normal) const {
    const bool closed = (flags & Polyline::closed_flag) != 0;
    const bool whole = (flags & pattern_goes_on_flag) != 0;
    const Matrix plane = drawing::ocs_to_world(normal) * drawing::translation({0, 0, elevation});
    draw_way(vertices, closed, whole, plane, canvas, look);
    const Point up = drawing::unit_normal(normal) * thickness;
    const Point rise = canvas.place().direction(up);
    if (thickness == 0 || std::abs(rise.x) + std::abs(rise.y) < 0.5) return;
    draw_way(vertices, closed, whole, drawing::translation(up) * plane, canvas, look);
    for (const auto& vertex : vertices) {
      const Point foot = plane({vertex.x, vertex.y, 0});
      canvas.curve({foot, foot + up}, look);
    }
  }
  /// As far as the window goes, both ways or from the base on.
  void endless(const drawing::Ray& ray, double from) const {
    const Point base = canvas.place()(ray.base), way = canvas.place().direction(ray.direction);
    const double speed = std::hypot(way.x, way.y);
    if (!(speed > 0) || !std::isfinite(speed)) return;
    const Window window = canvas.window().grown(1);
    const Point middle = window.middle();
    const double reach =
        (std::hypot(base.x - middle.x, base.y - middle.y) + window.width() + window.height()) /
        speed;
    const Point start = base + way * (from * reach), end = base + way * reach;
    const auto part = inside(window, start, end);
    if (!part) return;
    const auto at = [&](double t) {
      return ray.base + ray.direction * (from * reach + (1 - from) * reach * t);
    };
    canvas.curve({at(part->first), at(part->second)}, look);
  }
};

/// $PDMODE: 0 a dot, 1 nothing, 2 a plus, 3 a cross, 4 a tick upwards; and 32 a circle, 64 a square
/// around that.
void Shape::operator()(const drawing::PointMark& mark) const {
  constexpr std::int32_t circle_flag = 32, square_flag = 64, figure_bits = 7;
  const std::int32_t figure = points.mode & figure_bits;
  if (figure == 0) canvas.line({mark.position}, look);
  constexpr double usual = 5;
  const double percent = points.size < 0 ? -points.size : usual;
  const double half = points.size > 0 ? points.size / 2
                                      : canvas.window().height() * percent / 200 /
                                            std::max(canvas.magnification(), 1e-300);
  const auto at = [&](double x, double y) { return mark.position + Point{x * half, y * half, 0}; };
  if (figure == 2) {
    canvas.line({at(-2, 0), at(2, 0)}, look);
    canvas.line({at(0, -2), at(0, 2)}, look);
  } else if (figure == 3) {
    canvas.line({at(-2, -2), at(2, 2)}, look);
    canvas.line({at(-2, 2), at(2, -2)}, look);
  } else if (figure == 4) {
    canvas.line({at(0, 0), at(0, 1)}, look);
  }
  if ((points.mode & circle_flag) != 0) {
    canvas.line(chain_of(drawing::circular(mark.position, half, drawing::z_axis), canvas), look);
  }
  if ((points.mode & square_flag) != 0) {
    canvas.line({at(-1, -1), at(1, -1), at(1, 1), at(-1, 1), at(-1, -1)}, look);
  }
}

}  // namespace

void draw_shape(const drawing::Body& body, const Canvas& canvas, const Look& look,
                const PointStyle& points) {
  std::visit(Shape{canvas, look, points}, body);
}

}  // namespace velmar::render
