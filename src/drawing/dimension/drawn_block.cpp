#include "drawing/dimension/drawn_block.h"

#include <algorithm>
#include <cmath>

#include "drawing/dimension/arrowheads.h"
#include "drawing/dimension/layout.h"
#include "drawing/dimension/sector.h"
#include "drawing/dimension/styles.h"
#include "drawing/geometry/ocs.h"

namespace velmar::drawing {
namespace {

Dimension dimension_of(const Drawing& drawing, RecordId id) {
  return std::get<Dimension>(drawing.read_body(id));
}

std::optional<SpaceId> block_of(const Drawing& drawing, const std::string& name) {
  const auto found = drawing.find_space(name);
  const bool is_sheet = found && drawing.spaces()[index(*found)].is_layout;
  return is_sheet ? std::nullopt : found;
}

/// Anonymous, so that no block reference is meant to show it too.
bool can_be_redrawn(const Space& space) {
  return space.name.starts_with('*') && space.endblk != RecordId::none;
}

/// The block of that name, if no other shows the same; otherwise a new one, whose name it gets.
SpaceId own_block(Drawing& drawing, std::string& name) {
  const auto present = block_of(drawing, name);
  const bool is_usable = present && can_be_redrawn(drawing.spaces()[index(*present)]);
  if (is_usable && !drawing.is_drawn_by_several(*present)) return *present;
  const SpaceId added = drawing.add_drawn_block();
  name = drawing.spaces()[index(added)].name;
  return added;
}

void show(Dimension& dimension, const std::string& block) {
  if (dimension.block == block) return;
  dimension.block = block;
  dimension.flags |= Dimension::own_block_flag;
}

void require_layer_of_points(Drawing& drawing) {
  if (drawing.find_layer("Defpoints")) return;
  LayerRow row;
  row.name = "Defpoints";
  if (drawing.version() >= "AC1015") row.plottable = 0;
  drawing.add_layer(row);
}

/// What the file says was measured, where it says so and it is another value now.
void update_measured(Drawing& drawing, RecordId id) {
  constexpr double noise = 1e-12;
  Dimension dimension = dimension_of(drawing, id);
  const double now = measured(drawing, id);
  if (dimension.measured == 0 || std::abs(now - dimension.measured) <= noise * now) return;
  dimension.measured = now;
  drawing.write_body(id, dimension);
}

/// Entities of the same kinds in the same places are written anew, the others replaced.
void fill(Drawing& drawing, SpaceId block, const std::vector<Entity>& content) {
  const std::vector<RecordId> old = drawing.entities(block);
  std::size_t same = 0;
  while (same < old.size() && same < content.size() &&
         drawing.read_body(old[same]).index() == content[same].body.index() &&
         drawing.record(old[same]).kind != Kind::polyline) {
    drawing.write(old[same], content[same]);
    ++same;
  }
  for (std::size_t i = same; i < old.size(); ++i) drawing.erase(old[i]);
  for (std::size_t i = same; i < content.size(); ++i) drawing.add(block, content[i]);
}

bool is_shift(const Matrix& matrix) {
  return matrix.x == x_axis && matrix.y == y_axis && matrix.z == z_axis;
}

/// Maps what the block of that name holds; where it belongs to others too, into a new one.
void map_content(Drawing& drawing, std::string& name, const Matrix& matrix) {
  const auto present = block_of(drawing, name);
  if (!present) return;
  const std::vector<RecordId> content = drawing.entities(*present);
  for (const RecordId id : content) {
    if (can_transform(drawing.read_body(id), matrix)) continue;
    throw Error("The dimension with block " + name + " shows a " +
                std::string(drawing.kind_name(id)) + ", which cannot be moved");
  }
  const SpaceId own = own_block(drawing, name);
  for (const RecordId id : content) {
    const RecordId target = own == *present ? id : drawing.copy_to(id, own);
    Body body = drawing.read_body(id);
    transform(body, matrix);
    drawing.write_body(target, body);
  }
}

/// A straight dimension line goes to the side with the text.
void line_follows_straight(Dimension& dimension, Point shift) {
  const double angle = line_angle(dimension);
  const Point across{-std::sin(angle), std::cos(angle), 0};
  const Matrix world = ocs_to_world(dimension.normal);
  dimension.definition = dimension.definition + world.direction(across * dot(shift, across));
}

/// The ray turns about the centre until it points to the text.
void line_follows_round(Dimension& dimension, Point text) {
  const Matrix world = ocs_to_world(dimension.normal), to_ocs = world_to_ocs(dimension.normal);
  const bool is_diameter = dimension.type() == Dimension::diameter;
  const Point near = to_ocs(dimension.third), other = to_ocs(dimension.definition);
  const Point center = is_diameter ? (near + other) * 0.5 : other;
  const Point way{text.x - center.x, text.y - center.y, 0};
  if (!(norm(way) > 0)) return;
  const Point ray = way * (norm(near - center) / norm(way));
  dimension.third = world(center + ray);
  if (is_diameter) dimension.definition = world(center - ray);
}

/// The arc goes as far out as the text.
void line_follows_arc(Dimension& dimension, Point from, Point to) {
  const Sector sector = sector_of(dimension);
  const double before = norm(from - sector.vertex), after = norm(to - sector.vertex);
  if (!(sector.radius > 0) || !(after > 0)) return;
  const double factor =
      std::max(sector.radius + after - before, sector.radius * 1e-3) / sector.radius;
  const auto pulled = [&](Point at) { return sector.vertex + (at - sector.vertex) * factor; };
  if (dimension.type() == Dimension::angular_2_line) {
    dimension.arc_point = pulled(dimension.arc_point);
  } else {
    const Matrix world = ocs_to_world(dimension.normal), to_ocs = world_to_ocs(dimension.normal);
    dimension.definition = world(pulled(to_ocs(dimension.definition)));
  }
}

/// Where the text goes from one place to the other, in the OCS. The line of an ordinate ends there.
void line_follows(Dimension& dimension, Point from, Point to) {
  if (dimension.is_linear()) return line_follows_straight(dimension, to - from);
  if (dimension.is_angular()) return line_follows_arc(dimension, from, to);
  if (dimension.type() != Dimension::ordinate) return line_follows_round(dimension, to);
  const Matrix world = ocs_to_world(dimension.normal);
  dimension.second = dimension.second + world.direction(to - from);
}

}  // namespace

void draw(Drawing& drawing, RecordId id) {
  Dimension dimension = dimension_of(drawing, id);
  const DimVariables variables = variables_of(drawing, id);
  for (const std::string& name : {variables.arrow, variables.arrow1, variables.arrow2}) {
    require_arrow_block(drawing, name);
  }
  require_layer_of_points(drawing);
  const DimensionLayout layout = layout_of(drawing, id);
  const std::vector<Entity> content = drawn_content(drawing, id);
  std::string block = dimension.block;
  fill(drawing, own_block(drawing, block), content);
  show(dimension, block);
  if (dimension.is_linear()) {
    dimension.definition = ocs_to_world(dimension.normal)(layout.definition);
  }
  if (!dimension.has_user_text_place()) dimension.text_position = layout.text_middle;
  dimension.block_offset = {};
  drawing.write_body(id, dimension);
  update_measured(drawing, id);
}

void move_text(Drawing& drawing, RecordId id, Point place) {
  constexpr std::int32_t line_moves_with_text = 0;
  Dimension dimension = dimension_of(drawing, id);
  const Point wanted = world_to_ocs(dimension.normal)(place);
  if (variables_of(drawing, id).text_movement == line_moves_with_text) {
    line_follows(dimension, layout_of(drawing, id).text_middle, wanted);
  }
  dimension.text_position = wanted;
  dimension.flags |= Dimension::user_text_flag;
  drawing.write_body(id, dimension);
  draw(drawing, id);
}

void transform_dimension(Drawing& drawing, RecordId id, const Matrix& matrix) {
  Dimension dimension = dimension_of(drawing, id);
  const Point offset = ocs_to_world(dimension.normal).direction(dimension.block_offset);
  transform(dimension, matrix);
  if (!is_shift(matrix)) {
    drawing.write_body(id, dimension);
    return draw(drawing, id);
  }
  std::string block = dimension.block;
  map_content(drawing, block, matrix * translation(offset));
  show(dimension, block);
  dimension.block_offset = {};
  drawing.write_body(id, dimension);
  update_measured(drawing, id);
}

void transform_kept_dimension(Drawing& drawing, RecordId id, const Matrix& matrix) {
  KeptDimension dimension = drawing.read_kept_dimension(id);
  const Point offset = ocs_to_world(dimension.normal).direction(dimension.block_offset);
  transform(dimension, matrix);
  map_content(drawing, dimension.block, matrix * translation(offset));
  dimension.block_offset = {};
  drawing.write_kept_dimension(id, dimension);
}

void copy_drawn_block(Drawing& drawing, RecordId id) {
  Dimension dimension = dimension_of(drawing, id);
  const auto shown = block_of(drawing, dimension.block);
  if (!shown) return;
  const SpaceId own = drawing.add_drawn_block();
  dimension.block = drawing.spaces()[index(own)].name;
  drawing.write_body(id, dimension);
  for (const RecordId inner : drawing.entities(*shown)) {
    // A block that holds a dimension may hold itself.
    if (drawing.record(inner).kind != Kind::dimension) drawing.copy_to(inner, own);
  }
}

}  // namespace velmar::drawing
