#include <array>

#include "drawing/extents.h"
#include "embedded/entity_members.h"
#include "embedded/errors.h"
#include "embedded/intersections.h"
#include "embedded/record_members.h"
#include "embedded/xdata.h"

namespace velmar::embedded {
namespace {

Value erase(EntityObject& entity, Arguments&) {
  entity.drawing().erase(entity.id());
  return {};
}

/// Nothing is shown, so there is nothing to redraw.
Value redraw(EntityObject&, Arguments&) { return {}; }

Value get_bounding_box(EntityObject& entity, Arguments& arguments) {
  const auto box = drawing::extents(entity.drawing(), entity.id());
  if (!box) {
    const drawing::Kind kind = entity.record().kind;
    const bool is_endless = kind == drawing::Kind::ray || kind == drawing::Kind::xline;
    if (const auto* region = std::get_if<drawing::Region>(&entity.body())) {
      throw not_supported("GetBoundingBox of REGION (" + why_unknown(*region) + ")");
    }
    const bool is_opaque = std::holds_alternative<drawing::Opaque>(entity.body());
    if (is_opaque && !is_endless) throw not_supported("GetBoundingBox of " + entity.kind());
    throw failure(HostError::invalid_extents);
  }
  arguments.give(0, to_value(box->min));
  arguments.give(1, to_value(box->max));
  return {};
}

Value get_xdata(EntityObject& entity, Arguments& arguments) {
  XData data = read_xdata(entity.drawing(), entity.id(), arguments.text(0));
  const bool is_empty = data.types.empty();
  arguments.give(1, is_empty ? Value() : Value(std::move(data.types)));
  arguments.give(2, is_empty ? Value() : Value(std::move(data.values)));
  return {};
}

Value set_xdata(EntityObject& entity, Arguments& arguments) {
  write_xdata(entity.drawing(), entity.id(), arguments[0], arguments[1]);
  return {};
}

Value intersect_with(EntityObject& entity, Arguments& arguments) {
  const auto* reference = arguments[0].if_is<basic::Reference>();
  auto* other = reference ? dynamic_cast<EntityObject*>(reference->get()) : nullptr;
  if (!other) throw invalid_argument("IntersectObject", arguments.method());
  const std::int32_t extend = arguments.integer(1);
  if (extend < 0 || extend > 3) throw failure(HostError::invalid_input);
  constexpr std::int32_t extend_this = 1, extend_other = 2;
  const auto curve_of = [](const EntityObject& object, bool extended) {
    auto curve = curve_pieces(object.body(), extended);
    if (!curve) throw not_supported("IntersectWith of " + object.kind());
    return *curve;
  };
  const auto points = intersections(curve_of(entity, (extend & extend_this) != 0),
                                    curve_of(*other, (extend & extend_other) != 0));
  basic::Doubles numbers;
  for (const drawing::Point& point : points) {
    numbers.insert(numbers.end(), {point.x, point.y, point.z});
  }
  return numbers;
}

Value get_extension_dictionary(EntityObject& entity, Arguments&) {
  return extension_dictionary(entity.document(), entity.id());
}

constexpr std::array object_method_rows{
    EntityMethod{Member::GetBoundingBox, Effect::reads, 2, 2, get_bounding_box},
    EntityMethod{Member::Update, Effect::reads, 0, 0, redraw},
    EntityMethod{Member::Highlight, Effect::reads, 1, 1, redraw},
    EntityMethod{Member::Delete, Effect::changes, 0, 0, erase},
    EntityMethod{Member::Erase, Effect::changes, 0, 0, erase},
    EntityMethod{Member::GetXData, Effect::reads, 3, 3, get_xdata},
    EntityMethod{Member::SetXData, Effect::changes, 2, 2, set_xdata},
    EntityMethod{Member::IntersectWith, Effect::reads, 2, 2, intersect_with},
    EntityMethod{Member::GetExtensionDictionary, Effect::reads, 0, 0, get_extension_dictionary},
};

}  // namespace

std::span<const EntityMethod> object_methods() { return object_method_rows; }

}  // namespace velmar::embedded
