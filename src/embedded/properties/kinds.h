#pragma once

#include <span>

#include "drawing/entity.h"
#include "embedded/properties/table.h"

namespace velmar::embedded {

// What each kind has beside its plain fields (those come from its field list, see fields.h). A row
// here goes before the field of the same name.

std::span<const Property<drawing::Line>> properties(const drawing::Line&);
std::span<const Property<drawing::Arc>> properties(const drawing::Arc&);
std::span<const Property<drawing::Circle>> properties(const drawing::Circle&);
std::span<const Property<drawing::Ellipse>> properties(const drawing::Ellipse&);
std::span<const Property<drawing::LwPolyline>> properties(const drawing::LwPolyline&);
std::span<const Property<drawing::Polyline>> properties(const drawing::Polyline&);
std::span<const Property<drawing::Text>> properties(const drawing::Text&);
std::span<const Property<drawing::Attrib>> properties(const drawing::Attrib&);
std::span<const Property<drawing::MText>> properties(const drawing::MText&);
std::span<const Property<drawing::Tolerance>> properties(const drawing::Tolerance&);
std::span<const Property<drawing::Hatch>> properties(const drawing::Hatch&);
std::span<const Property<drawing::Solid>> properties(const drawing::Solid&);
std::span<const Property<drawing::Trace>> properties(const drawing::Trace&);
std::span<const Property<drawing::Face>> properties(const drawing::Face&);
std::span<const Property<drawing::Spline>> properties(const drawing::Spline&);
std::span<const Property<drawing::Leader>> properties(const drawing::Leader&);
std::span<const Property<drawing::Ray>> properties(const drawing::Ray&);
std::span<const Property<drawing::Xline>> properties(const drawing::Xline&);
std::span<const Property<drawing::OleFrame>> properties(const drawing::OleFrame&);
std::span<const Property<drawing::Region>> properties(const drawing::Region&);

std::span<const Method<drawing::Solid>> methods(const drawing::Solid&);
std::span<const Method<drawing::Trace>> methods(const drawing::Trace&);
std::span<const Method<drawing::Face>> methods(const drawing::Face&);
std::span<const Method<drawing::Spline>> methods(const drawing::Spline&);
std::span<const Method<drawing::Leader>> methods(const drawing::Leader&);
std::span<const Method<drawing::LwPolyline>> methods(const drawing::LwPolyline&);
std::span<const Method<drawing::Polyline>> methods(const drawing::Polyline&);

/// The other kinds have none.
template <class Body>
std::span<const Property<Body>> properties(const Body&) {
  return {};
}
template <class Body>
std::span<const Method<Body>> methods(const Body&) {
  return {};
}

/// Fields of the list that this very entity does not show.
bool hides(const drawing::Polyline& polyline, Member member);
bool hides(const drawing::Insert& insert, Member member);
bool hides(const drawing::Spline& spline, Member member);
template <class Body>
bool hides(const Body&, Member) {
  return false;
}

}  // namespace velmar::embedded
