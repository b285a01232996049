#include "render/kept_kinds.h"

#include <algorithm>
#include <cmath>

#include "drawing/kind.h"
#include "render/multileader.h"
#include "render/polyline_mesh.h"
#include "render/tag_reader.h"

namespace velmar::render {
namespace {

using drawing::Drawing;
using drawing::Kind;
using drawing::RecordId;

Chain closed(Chain chain) {
  if (!chain.empty()) chain.push_back(chain.front());
  return chain;
}

/// IMAGE and WIPEOUT: the frame, or what it is clipped to, in the coordinates of the image: pixels
/// from the middle of the upper left one. (DXF reference, IMAGE.)
Chain image_frame(const Drawing& drawing, RecordId id) {
  Point corner, across, up, size{1, 1, 0};
  Chain clip;
  TagReader tag(drawing, id);
  while (tag.next()) {
    if (tag.code() == 10) corner = tag.point();
    if (tag.code() == 11) across = tag.point();
    if (tag.code() == 12) up = tag.point();
    if (tag.code() == 13) size = tag.point();
    if (tag.code() == 14) clip.push_back(tag.point());
  }
  if (clip.size() < 2) clip = {{-0.5, -0.5, 0}, {size.x - 0.5, size.y - 0.5, 0}};
  if (clip.size() == 2) {
    const Point a = clip[0], b = clip[1];
    clip = {a, {b.x, a.y, 0}, b, {a.x, b.y, 0}};
  }
  for (Point& p : clip) p = corner + across * (p.x + 0.5) + up * (size.y - p.y - 0.5);
  return clip;
}

/// MLINE: at each vertex the places of its lines along the mitre.
std::vector<Chain> multiline(const Drawing& drawing, RecordId id) {
  constexpr int closed_flag = 2;
  std::vector<Chain> lines;
  Point vertex, mitre;
  std::size_t element = 0;
  int wanted = 0;
  std::int64_t flags = 0;
  TagReader tag(drawing, id);
  while (tag.next()) {
    if (tag.code() == 71) flags = tag.integer();
    if (tag.code() == 11) vertex = tag.point(), element = 0;
    if (tag.code() == 13) mitre = tag.point();
    if (tag.code() == 74) wanted = 1;
    if (tag.code() != 41 || wanted == 0) continue;
    wanted = 0;  // what follows are breaks of the line
    if (lines.size() <= element) lines.emplace_back();
    lines[element++].push_back(vertex + mitre * tag.number());
  }
  if ((flags & closed_flag) != 0) std::ranges::transform(lines, lines.begin(), closed);
  return lines;
}

/// MESH: the edges of its faces, which are lists of numbers of vertices.
std::vector<Chain> mesh_faces(const Drawing& drawing, RecordId id) {
  std::vector<Point> vertices;
  std::vector<Chain> faces;
  enum { before, in_vertices, in_faces, behind } part = before;
  std::int64_t left = 0;
  TagReader tag(drawing, id);
  while (tag.next()) {
    if (tag.code() == 92) part = part == before ? in_vertices : part;
    if (tag.code() == 93) part = in_faces;
    if (tag.code() == 94) part = behind;
    if (part == in_vertices && tag.code() == 10) vertices.push_back(tag.point());
    if (part != in_faces || tag.code() != 90) continue;
    if (left == 0) {
      left = tag.integer();
      faces.emplace_back();
    } else {
      --left;
      const auto number = static_cast<std::size_t>(tag.integer());
      if (number < vertices.size()) faces.back().push_back(vertices[number]);
    }
  }
  std::ranges::transform(faces, faces.begin(), closed);
  return faces;
}

/// HELIX: the spline that it is written with too.
std::vector<Chain> helix(const Drawing& drawing, RecordId id) {
  drawing::Spline spline;
  bool in_spline = false;
  TagReader tag(drawing, id);
  while (tag.next()) {
    if (tag.code() == 100) in_spline = tag.text() == "AcDbSpline";
    if (!in_spline) continue;
    if (tag.code() == 71) spline.degree = static_cast<std::int32_t>(tag.integer());
    if (tag.code() == 40) spline.knots.push_back(tag.number());
    if (tag.code() == 10) spline.control_points.push_back(tag.point());
  }
  return {outline(spline)};
}

/// A table or a dimension of a newer kind: the block that shows it. That of a dimension is drawn
/// where it stands.
KeptShape shown_by_block(const Drawing& drawing, RecordId id, bool placed) {
  drawing::Insert insert;
  Point direction = drawing::x_axis;
  TagReader tag(drawing, id);
  while (tag.next()) {
    if (tag.code() == 2 && insert.block.empty()) insert.block = tag.text();
    if (placed && tag.code() == 10 && insert.insertion == Point{}) insert.insertion = tag.point();
    if (placed && tag.code() == 11) direction = tag.point();
  }
  insert.rotation = std::atan2(direction.y, direction.x);
  return {.block = insert, .is_dimension = !placed};
}

KeptShape of_lines(std::vector<Chain> lines) { return {.lines = std::move(lines)}; }

std::optional<KeptShape> of_mesh(const Drawing& drawing, RecordId id) {
  auto lines = polyline_mesh_lines(drawing, id);
  if (!lines) return std::nullopt;
  return of_lines(std::move(*lines));
}

}  // namespace

std::optional<KeptShape> kept_shape(const Drawing& drawing, RecordId id) {
  switch (drawing.record(id).kind) {
    case Kind::polyline:
      return of_mesh(drawing, id);
    case Kind::image:
      return of_lines({closed(image_frame(drawing, id))});
    case Kind::wipeout: {
      KeptShape shape;
      shape.masks = {image_frame(drawing, id)};
      return shape;
    }
    case Kind::mline:
      return of_lines(multiline(drawing, id));
    case Kind::mesh:
      return of_lines(mesh_faces(drawing, id));
    case Kind::helix:
      return of_lines(helix(drawing, id));
    case Kind::acad_table:
      return shown_by_block(drawing, id, true);
    case Kind::arc_dimension:
    case Kind::large_radial_dimension:
      return shown_by_block(drawing, id, false);
    case Kind::multileader:
      return multileader_shape(drawing, id);
    default:
      return std::nullopt;
  }
}

}  // namespace velmar::render
