#include <array>

#include "basic/conversion.h"
#include "drawing/tolerance_style.h"
#include "embedded/entity_members.h"
#include "embedded/errors.h"
#include "embedded/names.h"
#include "embedded/properties/checks.h"
#include "embedded/properties/kinds.h"

namespace velmar::embedded {
namespace {

using drawing::Point;
using drawing::Tolerance;

void put_direction(Tolerance& tolerance, const Value& value) {
  const Point given = to_point(value, "DirectionVector", Member::DirectionVector);
  const Point across = cross(given, tolerance.normal);
  if (!(norm(across) > 1e-9 * norm(given))) throw failure(HostError::invalid_input);
  tolerance.direction = given * (1 / norm(given));
}

constexpr std::array own_rows{
    Property<Tolerance>{
        Member::DirectionVector,
        [](const Tolerance& tolerance) -> Value { return to_value(tolerance.direction); },
        put_direction},
    Property<Tolerance>{Member::TextHeight,
                        [](const Tolerance& tolerance) -> Value { return tolerance.text_height; },
                        [](Tolerance& tolerance, const Value& value) {
                          tolerance.text_height = checked_number(Member::Height, value);
                        }},
    Property<Tolerance>{Member::ScaleFactor,
                        [](const Tolerance& tolerance) -> Value { return tolerance.scale; },
                        [](Tolerance& tolerance, const Value& value) {
                          tolerance.scale = checked_number(Member::ScaleFactor, value);
                        }},
};

Value style_name(const EntityObject& entity) { return std::get<Tolerance>(entity.body()).style; }

/// The new style's height, gap and scale count, less what the entity says otherwise.
void put_style_name(EntityObject& entity, const Value& value) {
  drawing::Body body = entity.body();
  auto& tolerance = std::get<Tolerance>(body);
  tolerance.style = require_row(entity.drawing(), "DIMSTYLE", basic::convert<std::string>(value));
  entity.drawing().apply_style(body);
  read_overrides(tolerance, entity.drawing().read_xdata(entity.id()));
  entity.drawing().write_body(entity.id(), body);
}

constexpr std::array rows_of_drawing{
    EntityProperty{Member::StyleName, style_name, put_style_name},
};

}  // namespace

std::span<const Property<Tolerance>> properties(const Tolerance&) { return own_rows; }
std::span<const EntityProperty> tolerance_properties() { return rows_of_drawing; }

}  // namespace velmar::embedded
