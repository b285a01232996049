#include <array>

#include "basic/conversion.h"
#include "drawing/dimension/drawn_block.h"
#include "drawing/dimension/styles.h"
#include "drawing/geometry/ocs.h"
#include "embedded/entity_members.h"
#include "embedded/errors.h"
#include "embedded/names.h"
#include "embedded/properties/body.h"

namespace velmar::embedded {
namespace {

using drawing::Dimension;
using drawing::Point;

const Dimension& body(const EntityObject& entity) { return std::get<Dimension>(entity.body()); }

template <class Change>
void change_dimension(EntityObject& entity, Change apply) {
  Dimension changed = body(entity);
  apply(changed);
  entity.drawing().write_body(entity.id(), changed);
  draw(entity.drawing(), entity.id());
}

const Dimension& require_type(const EntityObject& entity, Dimension::Type type, Member member) {
  if (body(entity).type() != type) throw no_such_member(member);
  return body(entity);
}

Value get_text_position(const EntityObject& entity) {
  return to_value(drawing::ocs_to_world(body(entity).normal)(body(entity).text_position));
}

void put_text_position(EntityObject& entity, const Value& value) {
  const Point place = to_point(value, "TextPosition", Member::TextPosition);
  move_text(entity.drawing(), entity.id(), place);
}

template <Point Dimension::*point>
Value get_extension_point(const EntityObject& entity) {
  return to_value(require_type(entity, Dimension::aligned, Member::ExtLine1Point).*point);
}

/// The dimension line stays as far from the points as it is.
template <Point Dimension::*point>
void put_extension_point(EntityObject& entity, const Value& value) {
  const Point place = to_point(value, "Point", Member::ExtLine1Point);
  require_type(entity, Dimension::aligned, Member::ExtLine1Point);
  change_dimension(entity, [&](Dimension& it) {
    const auto across = [&] {
      const double angle = line_angle(it);
      return drawing::ocs_to_world(it.normal).direction({-std::sin(angle), std::cos(angle), 0});
    };
    const double distance = dot(it.definition - it.second, across());
    it.*point = place;
    it.definition = it.second + across() * distance;
    it.flags &= ~Dimension::user_text_flag;
  });
}

Value get_rotation(const EntityObject& entity) {
  return require_type(entity, Dimension::rotated, Member::Rotation).rotation;
}

void put_rotation(EntityObject& entity, const Value& value) {
  const double angle = to_number(value);
  require_type(entity, Dimension::rotated, Member::Rotation);
  change_dimension(entity, [&](Dimension& it) { it.rotation = angle; });
}

void put_text_rotation(EntityObject& entity, const Value& value) {
  const double angle = to_number(value);
  change_dimension(entity, [&](Dimension& it) { it.text_rotation = angle; });
}

void put_text_override(EntityObject& entity, const Value& value) {
  const auto text = basic::convert<std::string>(value);
  change_dimension(entity, [&](Dimension& it) { it.text = text; });
}

void put_dimension_style(EntityObject& entity, const Value& value) {
  const auto name = basic::convert<std::string>(value);
  const std::string found = require_row(entity.drawing(), "DIMSTYLE", name);
  change_dimension(entity, [&](Dimension& it) { it.style = found; });
}

void put_normal(EntityObject& entity, const Value& value) {
  drawing::Body changed = body(entity);
  put_property(entity.drawing(), changed, Member::Normal, value);
  change_dimension(entity, [&](Dimension& it) { it = std::get<Dimension>(changed); });
}

constexpr std::array dimension_property_rows{
    EntityProperty{Member::Measurement,
                   [](const EntityObject& e) -> Value { return measured(e.drawing(), e.id()); }},
    EntityProperty{Member::TextPosition, get_text_position, put_text_position},
    EntityProperty{Member::TextRotation,
                   [](const EntityObject& e) -> Value { return body(e).text_rotation; },
                   put_text_rotation},
    EntityProperty{Member::TextOverride,
                   [](const EntityObject& e) -> Value { return body(e).text; }, put_text_override},
    EntityProperty{Member::StyleName, [](const EntityObject& e) -> Value { return body(e).style; },
                   put_dimension_style},
    EntityProperty{Member::Rotation, get_rotation, put_rotation},
    EntityProperty{Member::ExtLine1Point, get_extension_point<&Dimension::first>,
                   put_extension_point<&Dimension::first>},
    EntityProperty{Member::ExtLine2Point, get_extension_point<&Dimension::second>,
                   put_extension_point<&Dimension::second>},
    EntityProperty{Member::Normal,
                   [](const EntityObject& e) -> Value { return to_value(body(e).normal); },
                   put_normal},
};

drawing::KeptDimension kept_of(const EntityObject& entity) {
  return entity.drawing().read_kept_dimension(entity.id());
}

constexpr std::array kept_dimension_rows{
    EntityProperty{Member::Measurement,
                   [](const EntityObject& e) -> Value { return kept_of(e).measured; }},
    EntityProperty{Member::TextPosition,
                   [](const EntityObject& e) -> Value {
                     const drawing::KeptDimension it = kept_of(e);
                     return to_value(drawing::ocs_to_world(it.normal)(it.text_position));
                   }},
};

}  // namespace

std::span<const EntityProperty> dimension_properties() { return dimension_property_rows; }
std::span<const EntityProperty> kept_dimension_properties() { return kept_dimension_rows; }

}  // namespace velmar::embedded
