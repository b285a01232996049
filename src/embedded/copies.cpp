#include <array>
#include <numbers>

#include "embedded/entity_members.h"
#include "embedded/errors.h"
#include "embedded/movement.h"

namespace velmar::embedded {
namespace {

using drawing::Matrix;
using drawing::Point;
using drawing::Record;

constexpr std::int32_t most_copies = 100'000;

std::string action(const EntityObject& entity, Member what) {
  return std::string(host::spelling(what)) + " of " + entity.kind();
}

std::shared_ptr<EntityObject> copy(const EntityObject& entity, Member what) {
  if (entity.record().is(Record::part)) throw not_supported(action(entity, what));
  return make_entity(entity.document(), entity.drawing().copy(entity.id()));
}

/// What cannot be mapped is refused before anything is added.
std::shared_ptr<EntityObject> mapped_copy(const EntityObject& entity, const Matrix& matrix,
                                          Member what) {
  require_transformable(entity, matrix, what);
  auto added = copy(entity, what);
  transform_entity(*added, matrix, what);
  return added;
}

Value copy_entity(EntityObject& entity, Arguments& arguments) {
  return copy(entity, arguments.method());
}

Value mirror(EntityObject& entity, Arguments& arguments) {
  const Matrix matrix = mirror_line(arguments.point(0, "Point1"), arguments.point(1, "Point2"));
  return mapped_copy(entity, matrix, arguments.method());
}

Value mirror_3d(EntityObject& entity, Arguments& arguments) {
  const Matrix matrix = mirror_plane(arguments.point(0, "Point1"), arguments.point(1, "Point2"),
                                     arguments.point(2, "Point3"));
  return mapped_copy(entity, matrix, arguments.method());
}

std::int32_t copies(const Arguments& arguments, std::size_t i) {
  const std::int32_t count = arguments.integer(i);
  if (count < 1 || count > most_copies) throw failure(HostError::invalid_input);
  return count;
}

/// The first of the objects is the entity itself. A full circle is divided evenly; of another angle
/// the last object stands at its end.
Value array_polar(EntityObject& entity, Arguments& arguments) {
  const std::int32_t count = copies(arguments, 0);
  const double fill = arguments.number(1);
  const Point center = arguments.point(2, "CenterPoint");
  if (count < 2 || fill == 0) throw failure(HostError::invalid_input);
  const bool is_full = std::abs(std::abs(fill) - 2 * std::numbers::pi) < 1e-9;
  const double step = fill / (is_full ? count : count - 1);
  basic::List added;
  for (std::int32_t i = 1; i < count; ++i) {
    const Matrix turn = drawing::rotation(center, drawing::z_axis, i * step);
    added.emplace_back(mapped_copy(entity, turn, arguments.method()));
  }
  return added;
}

Value array_rectangular(EntityObject& entity, Arguments& arguments) {
  const std::int32_t rows = copies(arguments, 0), columns = copies(arguments, 1),
                     levels = copies(arguments, 2);
  const double row_step = arguments.number(3), column_step = arguments.number(4),
               level_step = arguments.number(5);
  const std::int64_t total = std::int64_t{rows} * columns * levels;
  if (total < 2 || total > most_copies) throw failure(HostError::invalid_input);
  basic::List added;
  for (std::int32_t i = 1; i < total; ++i) {
    const std::int32_t column = i % columns, row = i / columns % rows, level = i / columns / rows;
    const Point offset{column * column_step, row * row_step, level * level_step};
    added.emplace_back(mapped_copy(entity, drawing::translation(offset), arguments.method()));
  }
  return added;
}

constexpr std::array copy_rows{
    EntityMethod{Member::Copy, Effect::reads, 0, 0, copy_entity},
    EntityMethod{Member::Mirror, Effect::reads, 2, 2, mirror},
    EntityMethod{Member::Mirror3D, Effect::reads, 3, 3, mirror_3d},
    EntityMethod{Member::ArrayPolar, Effect::reads, 3, 3, array_polar},
    EntityMethod{Member::ArrayRectangular, Effect::reads, 6, 6, array_rectangular},
};

}  // namespace

std::span<const EntityMethod> copy_methods() { return copy_rows; }

}  // namespace velmar::embedded
