#include "embedded/movement.h"

#include <array>
#include <cmath>

#include "drawing/dimension/drawn_block.h"
#include "drawing/dimension/drawn_kinds.h"
#include "embedded/entity_members.h"
#include "embedded/errors.h"

namespace velmar::embedded {
namespace {

using drawing::Matrix;
using drawing::Point;
using drawing::RecordId;

Value move(EntityObject& entity, Arguments& arguments) {
  const Point offset = arguments.point(1, "ToPoint") - arguments.point(0, "FromPoint");
  transform_entity(entity, drawing::translation(offset), Member::Move);
  return {};
}

Value rotate(EntityObject& entity, Arguments& arguments) {
  const Point base = arguments.point(0, "BasePoint");
  const Matrix turn = drawing::rotation(base, drawing::z_axis, arguments.number(1));
  transform_entity(entity, turn, Member::Rotate);
  return {};
}

Value rotate_3d(EntityObject& entity, Arguments& arguments) {
  const Point first = arguments.point(0, "Point1");
  const Point axis = arguments.point(1, "Point2") - first;
  if (!(norm(axis) > 0)) throw failure(HostError::invalid_input);
  const Matrix turn = drawing::rotation(first, axis * (1 / norm(axis)), arguments.number(2));
  transform_entity(entity, turn, Member::Rotate3D);
  return {};
}

Value scale(EntityObject& entity, Arguments& arguments) {
  const Point base = arguments.point(0, "BasePoint");
  const double factor = arguments.number(1);
  if (!(factor > 0)) throw failure(HostError::invalid_input);
  transform_entity(entity, drawing::scaling(base, factor), Member::ScaleEntity);
  return {};
}

/// Only maps that keep all shapes alike: circles stay circles.
bool is_similarity(const Matrix& matrix) {
  const double size = norm(matrix.x);
  if (!(size > 0) || !std::isfinite(size)) return false;
  constexpr double tolerance = 1e-9;
  const auto small = [&](double product) { return std::abs(product) <= tolerance * size * size; };
  return std::abs(norm(matrix.y) - size) <= tolerance * size &&
         std::abs(norm(matrix.z) - size) <= tolerance * size && small(dot(matrix.x, matrix.y)) &&
         small(dot(matrix.x, matrix.z)) && small(dot(matrix.y, matrix.z));
}

/// The 16 numbers of a 4 x 4 matrix, row by row; the last row is 0 0 0 1.
Value transform_by(EntityObject& entity, Arguments& arguments) {
  const basic::Doubles& m = arguments.numbers(0, "TransformationMatrix");
  if (m.size() != 16) throw failure(HostError::wrong_element_count);
  const Matrix matrix{.x = {m[0], m[4], m[8]},
                      .y = {m[1], m[5], m[9]},
                      .z = {m[2], m[6], m[10]},
                      .origin = {m[3], m[7], m[11]}};
  const bool is_affine = m[12] == 0 && m[13] == 0 && m[14] == 0 && m[15] == 1;
  if (!is_affine || !is_similarity(matrix)) throw failure(HostError::invalid_input);
  transform_entity(entity, matrix, Member::TransformBy);
  return {};
}

constexpr std::array movement_rows{
    EntityMethod{Member::Move, Effect::changes, 2, 2, move},
    EntityMethod{Member::Rotate, Effect::changes, 2, 2, rotate},
    EntityMethod{Member::Rotate3D, Effect::changes, 3, 3, rotate_3d},
    EntityMethod{Member::ScaleEntity, Effect::changes, 2, 2, scale},
    EntityMethod{Member::TransformBy, Effect::changes, 1, 1, transform_by},
};

}  // namespace

void require_transformable(const EntityObject& entity, const Matrix& matrix, Member what) {
  if (can_transform(entity.body(), matrix)) return;
  std::string action = std::string(host::spelling(what)) + " of " + entity.kind();
  const auto* region = std::get_if<drawing::Region>(&entity.body());
  if (region && region->data.empty()) action += " (" + why_unknown(*region) + ")";
  throw not_supported(action);
}

void transform_entity(EntityObject& entity, const Matrix& matrix, Member what) {
  drawing::Drawing& drawing = entity.drawing();
  if (entity.record().kind == drawing::Kind::dimension) {
    return transform_dimension(drawing, entity.id(), matrix);
  }
  if (drawing::is_kept_dimension(entity.record().kind) && drawing::keeps_measures(matrix)) {
    return transform_kept_dimension(drawing, entity.id(), matrix);
  }
  std::vector<std::pair<RecordId, drawing::Body>> moved{{entity.id(), entity.body()}};
  if (std::holds_alternative<drawing::Insert>(moved.front().second)) {
    for (const RecordId part : drawing.parts(entity.id())) {
      moved.emplace_back(part, drawing.read_body(part));
    }
  }
  require_transformable(entity, matrix, what);
  for (auto& [id, body] : moved) transform(body, matrix);
  for (const auto& [id, body] : moved) drawing.write_body(id, body);
}

Matrix mirror_line(Point first, Point second) {
  return mirror_plane(first, second, first + drawing::z_axis);
}

Matrix mirror_plane(Point first, Point second, Point third) {
  const Point normal = cross(second - first, third - first);
  if (!(norm(normal) > 0)) throw failure(HostError::invalid_input);
  return drawing::reflection(first, normal * (1 / norm(normal)));
}

std::span<const EntityMethod> movement_methods() { return movement_rows; }

}  // namespace velmar::embedded
