#include "drawing/convert/r12_entities.h"

#include <cmath>
#include <numbers>

#include "drawing/convert/r12_kinds.h"
#include "drawing/entities/text_layout.h"
#include "drawing/geometry/angle.h"
#include "drawing/geometry/ocs.h"
#include "drawing/hatch_lines.h"

namespace velmar::drawing {
namespace {

constexpr double degrees_per_radian = 180 / std::numbers::pi;

void add_point(Tags& tags, int code, Point point) {
  add_real(tags, code, point.x);
  add_real(tags, code + 10, point.y);
  add_real(tags, code + 20, point.z);
}

void add_normal(Tags& tags, Point normal) {
  if (normal != z_axis) add_point(tags, 210, normal);
}

/// Parts have nothing of their own but the layer of the entity they belong to.
Tags part_tags(const TagRecord& whole) { return {{8, text_of(whole.tags, 8)}}; }

TagRecord record_like(const TagRecord& original, std::string_view kind) {
  return {std::string(kind), 0, original.owner, common_tags(original), original.source};
}

TagRecord vertex_record(const TagRecord& of, Point position, std::int64_t flags) {
  TagRecord vertex{"VERTEX", 0, of.owner, part_tags(of), RecordId::none};
  add_point(vertex.tags, 10, position);
  if (flags != 0) add_integer(vertex.tags, 70, flags);
  return vertex;
}

TagRecord seqend_record(const TagRecord& of) {
  return {"SEQEND", 0, of.owner, part_tags(of), RecordId::none};
}

}  // namespace

Tags common_tags(const TagRecord& record) {
  Tags tags;
  bool in_group = false;
  for (const TagValue& tag : record.tags) {
    if (tag.code >= 1000) break;
    const auto* const text = std::get_if<std::string>(&tag.value);
    if (tag.code == 100 && text != nullptr && *text != "AcDbEntity") break;
    if (tag.code == 102) in_group = text != nullptr && text->starts_with('{');
    if (!in_group && is_r12_common(tag.code)) tags.push_back(tag);
  }
  return tags;
}

std::vector<TagRecord> R12Entities::instead_of(const TagRecord& record) {
  if (auto reference = drawn_reference(record)) {
    losses_.add(record.kind, "becomes a reference to the block it is drawn with", record.handle);
    return {std::move(*reference)};
  }
  if (record.source == RecordId::none) return dropped(record);
  const Body body = drawing_.read_body(record.source);
  std::vector<TagRecord> made;
  if (const auto* const flat = std::get_if<LwPolyline>(&body)) {
    losses_.note(record.kind, "becomes POLYLINE", record.handle);
    made = polyline(record, *flat);
  } else if (const auto* const ellipse = std::get_if<Ellipse>(&body)) {
    made = polyline(record, outline(*ellipse));
  } else if (const auto* const spline = std::get_if<Spline>(&body)) {
    const auto curve_of = curve(*spline);
    made = polyline(record, curve_of ? flatten(*curve_of) : spline->fit_points);
  } else if (const auto* const leader = std::get_if<Leader>(&body)) {
    made = polyline(record, leader->vertices);
  } else if (const auto* const text = std::get_if<MText>(&body)) {
    made = texts(record, *text);
  } else if (const auto* const area = std::get_if<Hatch>(&body)) {
    made = hatch(record, *area);
  }
  if (made.empty()) return dropped(record);
  seal(record, made);
  return made;
}

std::vector<TagRecord> R12Entities::dropped(const TagRecord& record) {
  losses_.add(record.kind, "dropped", record.handle);
  return {};
}

/// The first one is known by the handle and the extended data of what it stands for.
void R12Entities::seal(const TagRecord& record, std::vector<TagRecord>& made) {
  for (TagRecord& each : made) each.handle = written_.new_handle();
  made.front().handle = record.handle;
  const auto begin = static_cast<std::ptrdiff_t>(xdata_of(record.tags));
  made.front().tags.insert(made.front().tags.end(), record.tags.begin() + begin, record.tags.end());
}

std::vector<TagRecord> R12Entities::polyline(const TagRecord& record, const LwPolyline& polyline) {
  if (polyline.vertices.empty()) return {};
  TagRecord head = record_like(record, "POLYLINE");
  add_integer(head.tags, 66, 1);
  add_point(head.tags, 10, {0, 0, polyline.elevation});
  if (polyline.thickness != 0) add_real(head.tags, 39, polyline.thickness);
  add_integer(head.tags, 70, polyline.flags & (1 | 128));
  if (polyline.constant_width != 0) {
    add_real(head.tags, 40, polyline.constant_width);
    add_real(head.tags, 41, polyline.constant_width);
  }
  add_normal(head.tags, polyline.normal);
  std::vector<TagRecord> made{std::move(head)};
  for (const BulgeVertex& vertex : polyline.vertices) {
    TagRecord& part =
        made.emplace_back(vertex_record(record, {vertex.x, vertex.y, polyline.elevation}, 0));
    const bool has_width = vertex.start_width != 0 || vertex.end_width != 0;
    if (has_width && polyline.constant_width == 0) {
      add_real(part.tags, 40, vertex.start_width);
      add_real(part.tags, 41, vertex.end_width);
    }
    if (vertex.bulge != 0) add_real(part.tags, 42, vertex.bulge);
  }
  made.push_back(seqend_record(record));
  return made;
}

/// In space; closed where the last point is the first.
std::vector<TagRecord> R12Entities::polyline(const TagRecord& record,
                                             const std::vector<Point>& points) {
  if (points.size() < 2) return {};
  losses_.add(record.kind, "becomes POLYLINE, straight pieces", record.handle);
  const double size = norm(points.front()) + norm(points.back());
  const bool closed =
      points.size() > 3 && norm(points.front() - points.back()) <= 1e-12 * (1 + size);
  constexpr std::int64_t is_3d = 8, vertex_3d = 32;
  TagRecord head = record_like(record, "POLYLINE");
  add_integer(head.tags, 66, 1);
  add_point(head.tags, 10, {});
  add_integer(head.tags, 70, is_3d | (closed ? 1 : 0));
  std::vector<TagRecord> made{std::move(head)};
  for (std::size_t i = 0; i + (closed ? 1 : 0) < points.size(); ++i) {
    made.push_back(vertex_record(record, points[i], vertex_3d));
  }
  made.push_back(seqend_record(record));
  return made;
}

std::vector<TagRecord> R12Entities::texts(const TagRecord& record, const MText& text) {
  const TextLayout lines = layout(text);
  const Matrix to_plane = world_to_ocs(text.normal) * lines.world;
  std::vector<TagRecord> made;
  for (const TextRun& run : lines.runs) {
    if (run.text.find_first_not_of(' ') == std::string::npos) continue;
    const Point along = to_plane.direction(x_axis);
    TagRecord line = record_like(record, "TEXT");
    if (run.color >= 0) {
      std::erase_if(line.tags, [](const TagValue& tag) { return tag.code == 62; });
      add_integer(line.tags, 62, run.color);
    }
    add_point(line.tags, 10, to_plane(run.origin));
    add_real(line.tags, 40, run.height);
    add_text(line.tags, 1, run.text);
    if (along.y != 0 || along.x < 0) {
      add_real(line.tags, 50, std::atan2(along.y, along.x) * degrees_per_radian);
    }
    add_real(line.tags, 41, run.width_factor);
    if (run.oblique != 0) add_real(line.tags, 51, run.oblique * degrees_per_radian);
    add_text(line.tags, 7, text.style);
    add_normal(line.tags, text.normal);
    made.push_back(std::move(line));
  }
  if (!made.empty()) losses_.add(record.kind, "becomes TEXT, line by line", record.handle);
  return made;
}

/// The pattern's lines in a block of their own, as R12 has it.
std::vector<TagRecord> R12Entities::hatch(const TagRecord& record, const Hatch& hatch) {
  constexpr std::size_t most_lines = 100'000;
  if (hatch.is_solid()) return {};
  const auto segments = hatch_lines(hatch, most_lines);
  if (segments.empty()) return {};
  losses_.add(record.kind, "becomes a block of lines", record.handle);
  std::string name;
  do {
    name = "*X" + std::to_string(blocks_.size() + 1);
  } while (written_.block(name) != nullptr);
  TagBlock block{{"BLOCK", 0, 0, {{8, "0"}, {2, name}, {70, std::int64_t{1}}}, {}},
                 {},
                 {"ENDBLK", written_.new_handle(), 0, {{8, "0"}}, {}}};
  add_point(block.begin.tags, 10, {});
  add_text(block.begin.tags, 3, name);
  block.begin.tags.push_back({1, ""});
  const Matrix to_world = ocs_to_world(hatch.normal);
  for (const HatchSegment& segment : segments) {
    TagRecord line{"LINE", written_.new_handle(), 0, common_tags(record), RecordId::none};
    std::erase_if(line.tags, [](const TagValue& tag) { return tag.code == 67; });
    const Point lift{0, 0, hatch.elevation_point.z};
    add_point(line.tags, 10, to_world(segment.from + lift));
    add_point(line.tags, 11, to_world(segment.to + lift));
    block.entities.push_back(std::move(line));
  }
  blocks_.push_back(std::move(block));
  TagRecord reference = record_like(record, "INSERT");
  add_text(reference.tags, 2, name);
  add_point(reference.tags, 10, {});
  return {std::move(reference)};
}

std::optional<TagRecord> drawn_reference(const TagRecord& record) {
  const bool is_table = record.is("ACAD_TABLE");
  const bool is_dimension = record.is("ARC_DIMENSION") || record.is("LARGE_RADIAL_DIMENSION");
  const std::string block = text_of(record.tags, 2);
  if ((!is_table && !is_dimension) || block.empty()) return std::nullopt;
  TagRecord reference{"INSERT", record.handle, record.owner, {}, record.source};
  for (const TagValue& tag : record.tags) {  // its extension dictionary and reactors
    if (tag.code == 100) break;
    reference.tags.push_back(tag);
  }
  reference.tags.push_back({100, "AcDbEntity"});
  for (TagValue& tag : common_tags(record)) reference.tags.push_back(std::move(tag));
  reference.tags.push_back({100, "AcDbBlockReference"});
  add_text(reference.tags, 2, block);
  const auto at = [&](int code) { return is_table ? real_of(record.tags, code) : 0.0; };
  add_point(reference.tags, 10, {at(10), at(20), at(30)});
  if (is_table && (at(21) != 0 || at(11) < 0)) {
    add_real(reference.tags, 50, std::atan2(at(21), at(11)) * degrees_per_radian);
  }
  return reference;
}

}  // namespace velmar::drawing
