#include "embedded/additions.h"

#include <array>
#include <cmath>

#include "basic/conversion.h"
#include "drawing/dimension/drawn_block.h"
#include "embedded/current_style.h"
#include "embedded/entity_object.h"
#include "embedded/errors.h"
#include "embedded/hatch_patterns.h"
#include "embedded/properties/checks.h"

namespace velmar::embedded {
namespace {

using drawing::Point;

Value add(BlockObject& block, drawing::Body body) {
  DocumentState& document = *block.document();
  const drawing::Entity entity{current_common(document), std::move(body)};
  return make_entity(block.document(), document.drawing.add(block.id(), entity));
}

Value add_line(BlockObject& block, Arguments& arguments) {
  drawing::Line line;
  line.start = arguments.point(0, "StartPoint");
  line.end = arguments.point(1, "EndPoint");
  return add(block, line);
}

Value add_circle(BlockObject& block, Arguments& arguments) {
  drawing::Circle circle;
  circle.center = arguments.point(0, "Center");
  circle.radius = checked_number(Member::Radius, arguments[1]);
  return add(block, circle);
}

Value add_arc(BlockObject& block, Arguments& arguments) {
  drawing::Arc arc;
  arc.center = arguments.point(0, "Center");
  arc.radius = checked_number(Member::Radius, arguments[1]);
  arc.start_angle = arguments.number(2);
  arc.end_angle = arguments.number(3);
  return add(block, arc);
}

/// In the plane of the current coordinate system: the major axis has no height.
Value add_ellipse(BlockObject& block, Arguments& arguments) {
  drawing::Ellipse ellipse;
  ellipse.center = arguments.point(0, "Center");
  ellipse.major_axis = arguments.point(1, "MajorAxis");
  ellipse.ratio = checked_number(Member::RadiusRatio, arguments[2]);
  const double size = norm(ellipse.major_axis);
  if (!(size > 0) || std::abs(ellipse.major_axis.z) > 1e-9 * size) {
    throw failure(HostError::invalid_input);
  }
  return add(block, ellipse);
}

Value add_text(BlockObject& block, Arguments& arguments) {
  drawing::Text text;
  text.text = arguments.text(0);
  text.insertion = arguments.point(1, "InsertionPoint");
  text.height = checked_number(Member::Height, arguments[2]);
  text.style = current_text_style(*block.document());
  return add(block, text);
}

/// As high as texts are by default.
Value add_mtext(BlockObject& block, Arguments& arguments) {
  drawing::MText text;
  text.insertion = arguments.point(0, "InsertionPoint");
  text.width = arguments.number(1);
  if (text.width < 0) throw failure(HostError::invalid_input);
  text.text = arguments.text(2);
  text.height = current_text_height(*block.document());
  text.style = current_text_style(*block.document());
  return add(block, text);
}

Value add_tolerance(BlockObject& block, Arguments& arguments) {
  drawing::Tolerance tolerance;
  tolerance.text = arguments.text(0);
  tolerance.insertion = arguments.point(1, "InsertionPoint");
  const Point direction = arguments.point(2, "Direction");
  const double size = std::hypot(direction.x, direction.y);
  if (!(size > 0)) throw failure(HostError::invalid_input);
  tolerance.direction = Point{direction.x / size, direction.y / size, 0};
  tolerance.style = current_dim_style(*block.document());
  drawing::Body body = tolerance;
  block.document()->drawing.apply_style(body);
  return add(block, std::move(body));
}

/// So many numbers a vertex, two vertices at least.
const basic::Doubles& vertex_list(const Arguments& arguments, std::string_view parameter,
                                  std::size_t numbers_each) {
  const basic::Doubles& numbers = arguments.numbers(0, parameter);
  if (numbers.size() < 2 * numbers_each || numbers.size() % numbers_each != 0) {
    throw failure(HostError::wrong_element_count);
  }
  return numbers;
}

Value add_light_weight_polyline(BlockObject& block, Arguments& arguments) {
  const basic::Doubles& numbers = vertex_list(arguments, "VerticesList", 2);
  drawing::LwPolyline polyline;
  polyline.elevation = current_elevation(*block.document());
  for (std::size_t i = 0; i < numbers.size(); i += 2) {
    polyline.vertices.push_back({.x = numbers[i], .y = numbers[i + 1]});
  }
  return add(block, polyline);
}

/// Kept: the z of the vertices means nothing; a 2D polyline lies at the current elevation.
Value add_polyline(BlockObject& block, Arguments& arguments) {
  const basic::Doubles& numbers = vertex_list(arguments, "VerticesList", 3);
  drawing::Polyline polyline;
  polyline.elevation_point.z = current_elevation(*block.document());
  for (std::size_t i = 0; i < numbers.size(); i += 3) {
    const Point position{numbers[i], numbers[i + 1], polyline.elevation_point.z};
    polyline.vertices.push_back({.position = position});
  }
  return add(block, polyline);
}

Value add_3d_poly(BlockObject& block, Arguments& arguments) {
  constexpr std::int32_t vertex_of_3d = 32;
  const basic::Doubles& numbers = vertex_list(arguments, "PointsArray", 3);
  drawing::Polyline polyline;
  polyline.flags = drawing::Polyline::is_3d_flag;
  for (std::size_t i = 0; i < numbers.size(); i += 3) {
    const Point position{numbers[i], numbers[i + 1], numbers[i + 2]};
    polyline.vertices.push_back({.position = position, .flags = vertex_of_3d});
  }
  return add(block, polyline);
}

/// Kept: the hatch stays in the drawing, empty, whether loops are added to it or not.
Value add_hatch(BlockObject& block, Arguments& arguments) {
  const DocumentState& document = *block.document();
  if (document.drawing.version() < "AC1012")
    throw not_supported("AddHatch in R12, which has no HATCH,");
  constexpr std::int32_t gradient = 1;
  const std::int32_t object_type = arguments.has(3) ? arguments.integer(3) : 0;
  if (object_type == gradient) throw not_supported("AddHatch of a gradient");
  if (object_type != 0) throw failure(HostError::invalid_input);
  drawing::Hatch hatch;
  choose_pattern(hatch, document.drawing, arguments.integer(0), arguments.text(1));
  hatch.associative = basic::convert<bool>(arguments[2]) ? 1 : 0;
  hatch.elevation_point.z = current_elevation(document);
  return add(block, hatch);
}

Value add(BlockObject& block, const drawing::Dimension& dimension) {
  return make_entity(block.document(), add_dimension(*block.document(), block.id(), dimension));
}

/// The dimension line goes through the text position; its text stands where the style says.
Value add_dim_aligned(BlockObject& block, Arguments& arguments) {
  drawing::Dimension dimension;
  dimension.flags = drawing::Dimension::aligned;
  dimension.first = arguments.point(0, "ExtLine1Point");
  dimension.second = arguments.point(1, "ExtLine2Point");
  dimension.definition = arguments.point(2, "TextPosition");
  return add(block, dimension);
}

Value add_dim_rotated(BlockObject& block, Arguments& arguments) {
  drawing::Dimension dimension;
  dimension.flags = drawing::Dimension::rotated;
  dimension.first = arguments.point(0, "XLine1Point");
  dimension.second = arguments.point(1, "XLine2Point");
  dimension.definition = arguments.point(2, "DimLineLocation");
  dimension.rotation = arguments.number(3);
  return add(block, dimension);
}

constexpr std::array addition_rows{
    Method<BlockObject>{Member::AddLine, Effect::changes, 2, 2, add_line},
    Method<BlockObject>{Member::AddCircle, Effect::changes, 2, 2, add_circle},
    Method<BlockObject>{Member::AddArc, Effect::changes, 4, 4, add_arc},
    Method<BlockObject>{Member::AddEllipse, Effect::changes, 3, 3, add_ellipse},
    Method<BlockObject>{Member::AddMText, Effect::changes, 3, 3, add_mtext},
    Method<BlockObject>{Member::AddText, Effect::changes, 3, 3, add_text},
    Method<BlockObject>{Member::AddTolerance, Effect::changes, 3, 3, add_tolerance},
    Method<BlockObject>{Member::AddLightWeightPolyline, Effect::changes, 1, 1,
                        add_light_weight_polyline},
    Method<BlockObject>{Member::AddPolyline, Effect::changes, 1, 1, add_polyline},
    Method<BlockObject>{Member::AddHatch, Effect::changes, 3, 4, add_hatch},
    Method<BlockObject>{Member::Add3DPoly, Effect::changes, 1, 1, add_3d_poly},
    Method<BlockObject>{Member::AddDimAligned, Effect::changes, 3, 3, add_dim_aligned},
    Method<BlockObject>{Member::AddDimRotated, Effect::changes, 4, 4, add_dim_rotated},
};

}  // namespace

drawing::RecordId add_dimension(DocumentState& document, drawing::SpaceId space,
                                drawing::Dimension dimension) {
  dimension.flags |= drawing::Dimension::own_block_flag;
  dimension.style = current_dim_style(document);
  // Old drawings do not tell what was measured.
  if (document.drawing.version() >= "AC1012") dimension.measured = measurement(dimension);
  const drawing::RecordId id = document.drawing.add(space, {current_common(document), dimension});
  draw(document.drawing, id);
  return id;
}

std::span<const Method<BlockObject>> additions() { return addition_rows; }

}  // namespace velmar::embedded
