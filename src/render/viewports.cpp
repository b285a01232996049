#include "render/viewports.h"

#include <cstdlib>
#include <numbers>

#include "drawing/extents.h"
#include "drawing/geometry/ocs.h"
#include "drawing/sheet_viewport.h"
#include "render/tag_reader.h"

namespace velmar::render {
namespace {

using drawing::Drawing;
using drawing::RecordId;

constexpr double radians_per_degree = std::numbers::pi / 180;

/// A VIEWPORT as the file gives it. (DXF reference.)
struct Row {
  Viewport viewport;
  std::int64_t number = 0, status = 1, flags = 0;
  drawing::Handle clip = 0;
};

void freeze(const Drawing& drawing, drawing::Handle handle, Viewport& viewport) {
  const RecordId row = drawing.find(handle);
  for (std::uint32_t i = 0; i < drawing.layers().size() && row != RecordId::none; ++i) {
    if (drawing.layers()[i].record == row) {
      viewport.frozen.push_back(static_cast<drawing::LayerId>(i));
    }
  }
}

void take(const Drawing& drawing, const TagReader& tag, Row& row) {
  Viewport& viewport = row.viewport;
  switch (tag.code()) {
    case 10:
      viewport.center = tag.point();
      break;
    case 40:
      viewport.width = tag.number();
      break;
    case 41:
      viewport.height = tag.number();
      break;
    case 68:
      row.status = tag.integer();
      break;
    case 69:
      row.number = tag.integer();
      break;
    case 90:
      row.flags = tag.integer();
      break;
    case 12:
      viewport.view.center = tag.point();
      break;
    case 16:
      viewport.view.direction = tag.point();
      break;
    case 17:
      viewport.view.target = tag.point();
      break;
    case 45:
      viewport.view.height = tag.number();
      break;
    case 51:
      viewport.view.twist = tag.number() * radians_per_degree;
      break;
    case 340:
      row.clip = tag.handle();
      break;
    case 331:
    case 341:
      freeze(drawing, tag.handle(), viewport);
      break;
    default:
      break;
  }
}

Point point_of(const std::string& text) {
  char* rest = nullptr;
  Point point;
  point.x = std::strtod(text.c_str(), &rest);
  if (*rest == ',') point.y = std::strtod(rest + 1, &rest);
  if (*rest == ',') point.z = std::strtod(rest + 1, nullptr);
  return point;
}

/// Before release 13 the view is extended data: target, direction, twist, height, centre.
void take_old_view(const Drawing& drawing, RecordId id, Viewport& viewport) {
  int points = 0, numbers = 0;
  bool inside = false;
  for (const auto& [code, text] : drawing.read_xdata(id)) {
    if (code == 1000 && text == "MVIEW") inside = true;
    if (!inside) continue;
    if (code == 1010)
      (++points == 1 ? viewport.view.target : viewport.view.direction) = point_of(text);
    if (code == 1003) {
      if (const auto layer = drawing.find_layer(text)) viewport.frozen.push_back(*layer);
    }
    if (code != 1040) continue;
    const double value = std::strtod(text.c_str(), nullptr);
    ++numbers;
    if (numbers == 1) viewport.view.twist = value * radians_per_degree;
    if (numbers == 2) viewport.view.height = value;
    if (numbers == 3) viewport.view.center.x = value;
    if (numbers == 4) viewport.view.center.y = value;
  }
}

Chain border_of(const Drawing& drawing, const Row& row) {
  constexpr std::int64_t clipped_flag = 0x10000;
  const Viewport& v = row.viewport;
  const RecordId clip = row.clip == 0 ? RecordId::none : drawing.find(row.clip);
  if ((row.flags & clipped_flag) != 0 && clip != RecordId::none) {
    const auto chains = outlines(drawing, clip);
    if (!chains.empty() && chains[0].size() > 2) return chains[0];
  }
  const double x = v.width / 2, y = v.height / 2;
  return {v.center + Point{-x, -y, 0}, v.center + Point{x, -y, 0}, v.center + Point{x, y, 0},
          v.center + Point{-x, y, 0}};
}

}  // namespace

drawing::Matrix Viewport::place() const {
  const double size = scale();
  const drawing::Matrix scaled{
      drawing::x_axis * size, drawing::y_axis * size, drawing::z_axis * size, {}};
  return drawing::translation(center) * scaled * drawing::translation(-view.center) *
         drawing::rotation({}, drawing::z_axis, view.twist) *
         drawing::world_to_ocs(view.direction) * drawing::translation(-view.target);
}

std::optional<Viewport> read_viewport(const Drawing& drawing, RecordId id) {
  Row row;
  row.viewport.view.height = 0;
  TagReader tag(drawing, id);
  while (tag.next()) {
    constexpr int first_extended = 1000;
    if (tag.code() < first_extended) take(drawing, tag, row);
  }
  Viewport& viewport = row.viewport;
  if (viewport.view.height == 0) take_old_view(drawing, id, viewport);
  if (id == drawing::sheet_viewport(drawing, drawing.record(id).space)) return std::nullopt;
  if (!(viewport.width > 0) || !(viewport.height > 0)) return std::nullopt;
  constexpr std::int64_t off_flag = 0x20000;
  // Sheets that are not in use have neither numbers nor states.
  viewport.on = (row.status != 0 || row.number == 0) && (row.flags & off_flag) == 0;
  viewport.border = border_of(drawing, row);
  return viewport;
}

}  // namespace velmar::render
