#include "embedded/entity_members.h"

#include "drawing/dimension/drawn_kinds.h"

namespace velmar::embedded {
namespace {

using drawing::Kind;

bool has_offset(Kind kind) {
  return kind == Kind::line || kind == Kind::arc || kind == Kind::circle || kind == Kind::ellipse ||
         kind == Kind::lwpolyline || kind == Kind::polyline;
}

}  // namespace

const EntityProperty* find_entity_property(Kind kind, Member member) {
  if (const auto* row = find_row(entity_properties(), member)) return row;
  if (kind == Kind::tolerance) return find_row(tolerance_properties(), member);
  if (kind == Kind::hatch) return find_row(hatch_properties(), member);
  if (kind == Kind::dimension) return find_row(dimension_properties(), member);
  if (drawing::is_kept_dimension(kind)) return find_row(kept_dimension_properties(), member);
  return kind == Kind::insert ? find_row(reference_properties(), member) : nullptr;
}

const EntityMethod* find_entity_method(Kind kind, Member member) {
  if (const auto* row = find_row(movement_methods(), member)) return row;
  if (const auto* row = find_row(object_methods(), member)) return row;
  if (const auto* row = find_row(copy_methods(), member)) return row;
  if (kind == Kind::insert) {
    const auto* row = find_row(reference_methods(), member);
    return row ? row : find_row(reference_explosion(), member);
  }
  if (kind == Kind::hatch) return find_row(hatch_methods(), member);
  if (has_offset(kind)) {
    if (const auto* row = find_row(offset_methods(), member)) return row;
  }
  const bool is_polyline = kind == Kind::lwpolyline || kind == Kind::polyline;
  return is_polyline ? find_row(polyline_explosion(), member) : nullptr;
}

}  // namespace velmar::embedded
