#include "render/polyline_mesh.h"

#include <algorithm>
#include <cstdlib>

#include "render/tag_reader.h"

namespace velmar::render {
namespace {

using drawing::Drawing;
using drawing::RecordId;

/// Group 70 of a POLYLINE, and of its VERTEX records. (DXF reference.)
constexpr std::int64_t mesh = 16, polyface = 64, closed_down = 1, closed_across = 32, fitted = 4;
constexpr std::int64_t frame_vertex = 16, place_vertex = 64;

struct Head {
  std::int64_t flags = 0, rows = 0, columns = 0, fine_rows = 0, fine_columns = 0;

  bool is_fine() const { return (flags & fitted) != 0 && fine_rows > 0 && fine_columns > 0; }
};

Head read_head(const Drawing& drawing, RecordId id) {
  Head head;
  TagReader tag(drawing, id);
  while (tag.next()) {
    if (tag.code() == 70) head.flags = tag.integer();
    if (tag.code() == 71) head.rows = tag.integer();
    if (tag.code() == 72) head.columns = tag.integer();
    if (tag.code() == 73) head.fine_rows = tag.integer();
    if (tag.code() == 74) head.fine_columns = tag.integer();
  }
  return head;
}

struct Vertex {
  Point place;
  std::int64_t flags = 0;
  std::vector<std::int64_t> corners;  // of a face: numbers of vertices from 1
};

Vertex read_vertex(const Drawing& drawing, RecordId id) {
  Vertex vertex;
  TagReader tag(drawing, id);
  while (tag.next()) {
    if (tag.code() == 10) vertex.place = tag.point();
    if (tag.code() == 70) vertex.flags = tag.integer();
    const bool is_corner = tag.code() >= 71 && tag.code() <= 74;
    constexpr std::int64_t most = 1'000'000'000;
    const std::int64_t number = std::clamp(tag.integer(), -most, most);
    if (is_corner && number != 0) vertex.corners.push_back(number);
  }
  return vertex;
}

void add_face(const Vertex& face, const std::vector<Point>& places, std::vector<Chain>& lines) {
  const auto place = [&](std::size_t i) {
    return static_cast<std::size_t>(std::abs(face.corners[i % face.corners.size()])) - 1;
  };
  for (std::size_t i = 0; i < face.corners.size(); ++i) {
    const bool hidden = face.corners[i] < 0;
    const std::size_t from = place(i), to = place(i + 1);
    if (!hidden && from < places.size() && to < places.size()) {
      lines.push_back({places[from], places[to]});
    }
  }
}

/// The lines of a grid, `count` of them with `size` places each.
void add_rows(const std::vector<Point>& places, std::size_t count, std::size_t size,
              std::size_t next_row, std::size_t next_place, bool closed,
              std::vector<Chain>& lines) {
  for (std::size_t row = 0; row < count; ++row) {
    Chain chain;
    for (std::size_t i = 0; i < size; ++i) {
      chain.push_back(places[row * next_row + i * next_place]);
    }
    if (closed) chain.push_back(Point(chain.front()));
    lines.push_back(std::move(chain));
  }
}

}  // namespace

std::optional<std::vector<Chain>> polyline_mesh_lines(const Drawing& drawing, RecordId id) {
  const Head head = read_head(drawing, id);
  if ((head.flags & (mesh | polyface)) == 0) return std::nullopt;
  std::vector<Point> places;
  std::vector<Chain> lines;
  for (const RecordId part : drawing.parts(id)) {
    const Vertex vertex = read_vertex(drawing, part);
    const bool is_face = (head.flags & polyface) != 0 && (vertex.flags & place_vertex) == 0;
    const bool is_frame = (head.flags & fitted) != 0 && (vertex.flags & frame_vertex) != 0;
    if (is_face) add_face(vertex, places, lines);
    if (!is_face && !is_frame) places.push_back(vertex.place);
  }
  if ((head.flags & mesh) == 0) return lines;
  const auto rows = static_cast<std::size_t>(head.is_fine() ? head.fine_rows : head.rows);
  const auto columns = static_cast<std::size_t>(head.is_fine() ? head.fine_columns : head.columns);
  if (rows == 0 || columns == 0 || places.size() / columns < rows) {
    return std::vector<Chain>{places};
  }
  add_rows(places, rows, columns, columns, 1, (head.flags & closed_across) != 0, lines);
  add_rows(places, columns, rows, 1, columns, (head.flags & closed_down) != 0, lines);
  return lines;
}

}  // namespace velmar::render
