#pragma once

#include <concepts>
#include <optional>
#include <string_view>

#include "basic/failure.h"
#include "host/entities.h"

namespace velmar::host {

/// A class of entities that a view accepts besides the one it is named after.
struct Acceptance {
  std::string_view view;
  std::string_view object_name;
};

/// Which `ObjectName` each view accepts: its own class_name, and these.
inline constexpr Acceptance also_accepted[] = {
    {Dimension::class_name, AlignedDimension::class_name},
    {Dimension::class_name, RotatedDimension::class_name},
    {Dimension::class_name, "AcDb2LineAngularDimension"},
    {Dimension::class_name, "AcDb3PointAngularDimension"},
    {Dimension::class_name, "AcDbArcDimension"},
    {Dimension::class_name, "AcDbDiametricDimension"},
    {Dimension::class_name, "AcDbOrdinateDimension"},
    {Dimension::class_name, "AcDbRadialDimension"},
    {Dimension::class_name, "AcDbRadialDimensionLarge"},
    {BlockReference::class_name, "AcDbMInsertBlock"},
};

/// Whether the view of that class_name takes entities of that `ObjectName` (letter case counts).
constexpr bool accepts(std::string_view view, std::string_view object_name) {
  if (view == object_name) return true;
  for (const Acceptance& row : also_accepted) {
    if (row.view == view && row.object_name == object_name) return true;
  }
  return false;
}

/// The entity through the view of a kind, nothing where it is of another kind.
template <std::derived_from<Entity> T>
std::optional<T> try_as(const Entity& entity) {
  const bool is_taken = entity.with_text(Member::ObjectName, [](std::string_view object_name) {
    return accepts(T::class_name, object_name);
  });
  if (!is_taken) return std::nullopt;
  return T(entity.object());
}

/// The entity through the view of a kind; error 13 where it is of another kind.
template <std::derived_from<Entity> T>
T as(const Entity& entity) {
  const std::optional<T> seen = try_as<T>(entity);
  if (!seen) throw basic::Failure(basic::type_mismatch);
  return *seen;
}

}  // namespace velmar::host
