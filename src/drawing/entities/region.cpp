#include "drawing/entities/region.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "drawing/entities/acis_placement.h"
#include "drawing/geometry/matrix.h"
#include "drawing/geometry/ocs.h"
#include "drawing/geometry/quadrature.h"

namespace velmar::drawing {
namespace {

using Records = std::vector<AcisRecord>;

const AcisRecord* find(const Records& records, int reference, std::string_view kind) {
  if (reference < 0 || static_cast<std::size_t>(reference) >= records.size()) return nullptr;
  const AcisRecord& record = records[static_cast<std::size_t>(reference)];
  return record.kind == kind ? &record : nullptr;
}

/// One of the last references of a record: versions differ in what comes before.
int from_end(const AcisRecord& record, std::size_t place) {
  const std::size_t count = record.references.size();
  return place < count ? record.references[count - 1 - place] : -1;
}

std::optional<Point> place_of(const Records& records, int vertex) {
  const AcisRecord* found = find(records, vertex, "vertex");
  const AcisRecord* point = found ? find(records, from_end(*found, 0), "point") : nullptr;
  if (!point || point->numbers.size() < 3) return std::nullopt;
  return Point{point->numbers[0], point->numbers[1], point->numbers[2]};
}

/// The part of an ellipse between two of its points, counter-clockwise about its normal; all of it
/// where they are the same.
std::optional<RegionEdge> round_edge(const AcisRecord& curve, Point start, Point end,
                                     bool backward) {
  if (curve.numbers.size() < 10) return std::nullopt;
  const auto& n = curve.numbers;
  Conic conic{{n[0], n[1], n[2]}, {n[6], n[7], n[8]}, {}, 0, full_turn};
  const Point normal = unit_normal({n[3], n[4], n[5]});
  conic.sine = cross(normal, conic.cosine) * n[9];
  if (!(norm(conic.cosine) > 0) || !(norm(conic.sine) > 0)) return std::nullopt;
  if (backward) std::swap(start, end);
  const auto parameter = [&](Point at) {
    const Point away = at - conic.center;
    return std::atan2(dot(away, conic.sine) / dot(conic.sine, conic.sine),
                      dot(away, conic.cosine) / dot(conic.cosine, conic.cosine));
  };
  conic.start = parameter(start);
  if (norm(end - start) > 1e-9 * norm(conic.cosine)) {
    conic.sweep = sweep_between(conic.start, parameter(end));
  }
  return conic;
}

bool is_reversed(const AcisRecord& record) {
  return std::ranges::find(record.words, "reversed") != record.words.end();
}

std::optional<RegionEdge> edge_of(const Records& records, const AcisRecord& edge) {
  const auto start = place_of(records, from_end(edge, 3)),
             end = place_of(records, from_end(edge, 2));
  if (!start || !end) return std::nullopt;
  if (find(records, from_end(edge, 0), "straight-curve")) return RegionLine{*start, *end};
  const AcisRecord* curve = find(records, from_end(edge, 0), "ellipse-curve");
  return curve ? round_edge(*curve, *start, *end, is_reversed(edge)) : std::nullopt;
}

Point start_of(const RegionEdge& edge) {
  if (const auto* line = std::get_if<RegionLine>(&edge)) return line->start;
  return std::get<Conic>(edge)(std::get<Conic>(edge).start);
}

RegionEdge mapped(const RegionEdge& edge, const Matrix& map) {
  if (const auto* line = std::get_if<RegionLine>(&edge)) {
    return RegionLine{map(line->start), map(line->end)};
  }
  const auto& conic = std::get<Conic>(edge);
  return Conic{map(conic.center), map.direction(conic.cosine), map.direction(conic.sine),
               conic.start, conic.sweep};
}

/// Half the vector product of the way with the places on it, summed along the edge: over a closed
/// way the area that it goes around, along the normal.
Point swept(const RegionEdge& edge, Point origin) {
  if (const auto* line = std::get_if<RegionLine>(&edge)) {
    return cross(line->start - origin, line->end - origin) * 0.5;
  }
  const auto& conic = std::get<Conic>(edge);
  const Point chord = conic(conic.start + conic.sweep) - conic(conic.start);
  const Point sector = cross(conic.cosine, conic.sine) * conic.sweep;
  return (cross(conic.center - origin, chord) + sector) * 0.5;
}

double length(const RegionEdge& edge) {
  if (const auto* line = std::get_if<RegionLine>(&edge)) return norm(line->end - line->start);
  const auto& conic = std::get<Conic>(edge);
  const auto speed = [&](double t) {
    return norm(conic.sine * std::cos(t) - conic.cosine * std::sin(t));
  };
  Halvings halvings;
  return integral(speed, conic.start, conic.start + conic.sweep, halvings);
}

/// Each face's loops, which run around what is inside and against it around what is not.
std::optional<double> area_of(const Records& records, const Matrix& place) {
  std::map<int, Point> faces;
  std::optional<Point> origin;
  for (const AcisRecord& coedge : records) {
    if (coedge.kind != "coedge") continue;
    const AcisRecord* edge = find(records, from_end(coedge, 2), "edge");
    const AcisRecord* loop = find(records, from_end(coedge, 1), "loop");
    const auto shape = edge && loop ? edge_of(records, *edge) : std::nullopt;
    if (!shape) return std::nullopt;
    const RegionEdge image = mapped(*shape, place);
    if (!origin) origin = start_of(image);
    const bool is_round = std::holds_alternative<Conic>(image);
    const bool against = is_reversed(coedge) != (is_round && is_reversed(*edge));
    Point& sum = faces[from_end(*loop, 0)];
    sum = sum + swept(image, *origin) * (against ? -1 : 1);
  }
  if (faces.empty()) return std::nullopt;
  double area = 0;
  for (const auto& [face, sum] : faces) area += norm(sum);
  return area;
}

}  // namespace

std::optional<std::vector<RegionEdge>> edges(const Region& region) {
  const auto records = acis_records(region.data);
  const auto place = records ? placement(*records) : std::nullopt;
  if (!place) return std::nullopt;
  std::vector<RegionEdge> result;
  for (const AcisRecord& record : *records) {
    if (record.kind != "edge") continue;
    const auto edge = edge_of(*records, record);
    if (!edge) return std::nullopt;
    result.push_back(mapped(*edge, *place));
  }
  if (result.empty()) return std::nullopt;
  return result;
}

std::string why_unknown(const Region& region) {
  if (region.data.empty()) return "the file keeps its shape in binary form";
  const auto records = acis_records(region.data);
  if (!records || !placement(*records)) return "its shape is in no form that is known";
  return edges(region) ? "" : "it has curves other than lines and ellipses";
}

std::optional<double> area(const Region& region) {
  const auto records = acis_records(region.data);
  const auto place = records ? placement(*records) : std::nullopt;
  return place ? area_of(*records, *place) : std::nullopt;
}

std::optional<double> perimeter(const Region& region) {
  const auto found = edges(region);
  if (!found) return std::nullopt;
  double sum = 0;
  for (const RegionEdge& edge : *found) sum += length(edge);
  return sum;
}

bool can_transform(const Region& region, const Matrix& matrix) {
  return placed(region.data, matrix).has_value();
}

void transform(Region& region, const Matrix& matrix) {
  if (auto data = placed(region.data, matrix)) region.data = std::move(*data);
}

Box extents(const Region& region) {
  Box box;
  for (const RegionEdge& edge : edges(region).value_or(std::vector<RegionEdge>())) {
    if (const auto* line = std::get_if<RegionLine>(&edge)) {
      box.add(line->start);
      box.add(line->end);
    } else {
      box.add(extents(std::get<Conic>(edge)));
    }
  }
  return box;
}

std::vector<std::vector<Point>> outlines(const Region& region) {
  std::vector<std::vector<Point>> chains;
  for (const RegionEdge& edge : edges(region).value_or(std::vector<RegionEdge>())) {
    if (const auto* line = std::get_if<RegionLine>(&edge)) {
      chains.push_back({line->start, line->end});
    } else {
      chains.push_back(outline(std::get<Conic>(edge)));
    }
  }
  return chains;
}

}  // namespace velmar::drawing
