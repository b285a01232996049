#include "drawing/entities/region.h"

#include <algorithm>
#include <cmath>

#include "drawing/entities/acis_text.h"
#include "drawing/geometry/matrix.h"
#include "drawing/geometry/ocs.h"

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

std::optional<RegionEdge> edge_of(const Records& records, const AcisRecord& edge) {
  const auto start = place_of(records, from_end(edge, 3)),
             end = place_of(records, from_end(edge, 2));
  if (!start || !end) return std::nullopt;
  if (find(records, from_end(edge, 0), "straight-curve")) return RegionLine{*start, *end};
  const AcisRecord* curve = find(records, from_end(edge, 0), "ellipse-curve");
  const bool backward = std::ranges::find(edge.words, "reversed") != edge.words.end();
  return curve ? round_edge(*curve, *start, *end, backward) : std::nullopt;
}

/// What the whole model is placed with: rows of a matrix for row vectors, the shift, the scale.
std::optional<Matrix> placement(const Records& records) {
  const auto body = std::ranges::find(records, "body", &AcisRecord::kind);
  if (body == records.end()) return std::nullopt;
  const int reference = from_end(*body, 0);
  if (reference < 0) return Matrix{};
  const AcisRecord* transform = find(records, reference, "transform");
  if (!transform || transform->numbers.size() < 13) return std::nullopt;
  const auto& n = transform->numbers;
  const double scale = n[12];
  return Matrix{Point{n[0], n[1], n[2]} * scale,
                Point{n[3], n[4], n[5]} * scale,
                Point{n[6], n[7], n[8]} * scale,
                {n[9], n[10], n[11]}};
}

RegionEdge mapped(const RegionEdge& edge, const Matrix& map) {
  if (const auto* line = std::get_if<RegionLine>(&edge)) {
    return RegionLine{map(line->start), map(line->end)};
  }
  const auto& conic = std::get<Conic>(edge);
  return Conic{map(conic.center), map.direction(conic.cosine), map.direction(conic.sine),
               conic.start, conic.sweep};
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
