#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "drawing/entities/field.h"
#include "drawing/geometry/box.h"
#include "drawing/geometry/conic.h"
#include "drawing/geometry/matrix.h"

namespace velmar::drawing {

/// REGION: an area that a solid modeller keeps, as text of its own (SAT) in groups 1 and 3. It is
/// read for the edges of the area; of it only the placement of the whole is ever changed. Files
/// since 2013 have it elsewhere, in binary form.
struct Region {
  std::vector<std::string> data;  // lines, as the file disguises them
};

template <class Fields>
void fields(Fields& field, Region& region) {
  field.subclass("AcDbModelerGeometry");
  field.long_texts(1, 3, region.data);
}

struct RegionLine {
  Point start, end;
};
/// An edge in world coordinates: a straight line, or a part of a circle or an ellipse.
using RegionEdge = std::variant<RegionLine, Conic>;

/// The edges, in no certain order or direction. Nothing where `why_unknown` says why.
std::optional<std::vector<RegionEdge>> edges(const Region& region);
/// "the file keeps its shape in binary form", "it has curves other than lines and ellipses"; empty
/// where the edges are known.
std::string why_unknown(const Region& region);

/// Holes left out; nothing where the edges or their order are not known.
std::optional<double> area(const Region& region);
/// Of all edges, those of holes too.
std::optional<double> perimeter(const Region& region);

/// Maps that keep all shapes alike, where the model says in a known form how it is placed.
bool can_transform(const Region& region, const Matrix& matrix);
void transform(Region& region, const Matrix& matrix);

/// Empty where the edges are not known.
Box extents(const Region& region);
std::vector<std::vector<Point>> outlines(const Region& region);

}  // namespace velmar::drawing
