#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "drawing/entities/field.h"
#include "drawing/geometry/box.h"
#include "drawing/geometry/conic.h"

namespace velmar::drawing {

/// REGION: an area that a solid modeller keeps, as text of its own (SAT) in groups 1 and 3. It is
/// read for the edges of the area and never changed. Files since 2013 have it elsewhere, in binary
/// form.
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

/// Empty where the edges are not known.
Box extents(const Region& region);
std::vector<std::vector<Point>> outlines(const Region& region);

}  // namespace velmar::drawing
