#include <algorithm>
#include <utility>

#include "drawing/dxf/chunk.h"
#include "drawing/dxf/field_reader.h"
#include "drawing/dxf/field_writer.h"

// The words of a field list for what a record has many of, or in pieces.

namespace velmar::drawing::dxf {

void FieldWriter::append_vertex(std::string& out, const BulgeVertex& vertex) const {
  append_real(out, 10, vertex.x, format_);
  append_real(out, 20, vertex.y, format_);
  if (vertex.start_width != 0 || vertex.end_width != 0) {
    append_real(out, 40, vertex.start_width, format_);
    append_real(out, 41, vertex.end_width, format_);
  }
  if (vertex.bulge != 0) append_real(out, 42, vertex.bulge, format_);
}

void FieldWriter::vertices(const std::vector<BulgeVertex>& list) {
  std::vector<BulgeVertex> present;
  FieldReader reader(record_);
  reader.subclass("AcDbPolyline");
  reader.vertices(present);
  const auto& tags = record_.tags();
  std::size_t first = range_.first();
  while (first < range_.last() && tags[first].code != 10) ++first;
  std::size_t last = first;
  const auto of_vertex = [](int code) {
    return code == 10 || code == 20 || (code >= 40 && code <= 42) || code == 91;
  };
  while (last < range_.last() && of_vertex(tags[last].code)) ++last;
  if (last > first) pass(tags[last - 1]);
  if (present == list) return;

  // Where only coordinates changed, only these are written; else the run of vertices is written
  // anew.
  bool only_coordinates = present.size() == list.size();
  for (std::size_t i = 0; only_coordinates && i < list.size(); ++i) {
    BulgeVertex moved = present[i];
    moved.x = list[i].x;
    moved.y = list[i].y;
    only_coordinates = moved == list[i];
  }
  if (only_coordinates) {
    std::size_t vertex = 0;
    for (std::size_t i = first; i < last; ++i) {
      if (tags[i].code == 10) write_real(tags[i], list[vertex++].x);
      if (tags[i].code == 20 && vertex > 0) write_real(tags[i], list[vertex - 1].y);
    }
    return;
  }
  std::string bytes;
  for (const BulgeVertex& vertex : list) append_vertex(bytes, vertex);
  if (first == last) return insert(std::move(bytes));
  edits_.push_back({tags[first].begin, tags[last - 1].next - tags[first].begin, std::move(bytes)});
}

void FieldWriter::take_row(const RowWriter& row, std::size_t first, std::size_t last, bool omit) {
  if (last == first) {
    if (!omit || complete_) insert(row.bytes());
    return;
  }
  const auto& tags = record_.tags();
  pass(tags[last - 1]);
  if (row.fits()) {
    edits_.insert(edits_.end(), row.edits().begin(), row.edits().end());
  } else {
    edits_.push_back({tags[first].begin, tags[last - 1].next - tags[first].begin, row.bytes()});
  }
}

void FieldWriter::absent(std::initializer_list<int> codes) { replace_run(codes, {}); }

void FieldWriter::replace_run(std::initializer_list<int> codes, std::string bytes) {
  bool is_first = true;
  for (std::size_t i = range_.first(); i < range_.last(); ++i) {
    const Tag& tag = record_.tags()[i];
    if (tag.in_group || std::ranges::find(codes, tag.code) == codes.end()) continue;
    edits_.push_back({tag.begin, tag.next - tag.begin, std::exchange(bytes, {})});
    is_first = false;
  }
  if (is_first && !bytes.empty()) insert(std::move(bytes));
}

void FieldWriter::repeated(int code, const std::vector<double>& list) {
  std::vector<const Tag*> present;
  for (std::size_t i = range_.first(); i < range_.last(); ++i) {
    const Tag& tag = record_.tags()[i];
    if (!tag.in_group && tag.code == code) present.push_back(&tag);
  }
  if (present.size() == list.size()) {
    for (std::size_t i = 0; i < list.size(); ++i) write_real(*present[i], list[i]);
    return;
  }
  std::string bytes;
  for (const double number : list) append_real(bytes, code, number, format_);
  replace_run({code}, std::move(bytes));
}

void FieldWriter::repeated(int code, const std::vector<Point>& list) {
  std::vector<Point> present;
  FieldReader(record_, range_).repeated(code, present);
  const auto needs_z = [](const Point& point) { return point.z != 0; };
  const bool lacks_z = !range_.find(code + 20) && std::ranges::any_of(list, needs_z);
  if (present.size() != list.size() || lacks_z) {
    std::string bytes;
    for (const Point& point : list) {
      append_real(bytes, code, point.x, format_);
      append_real(bytes, code + 10, point.y, format_);
      append_real(bytes, code + 20, point.z, format_);
    }
    return replace_run({code, code + 10, code + 20}, std::move(bytes));
  }
  std::size_t met = 0;
  for (std::size_t i = range_.first(); i < range_.last(); ++i) {
    const Tag& tag = record_.tags()[i];
    if (tag.in_group) continue;
    if (tag.code == code) write_real(tag, list[met++].x);
    if (met == 0) continue;
    if (tag.code == code + 10) write_real(tag, list[met - 1].y);
    if (tag.code == code + 20) write_real(tag, list[met - 1].z);
  }
}

/// In pieces of at most 255 bytes in the file.
std::string FieldWriter::long_text(int code, int more, std::string_view text) const {
  constexpr std::size_t most = 255;
  std::string bytes;
  for (std::size_t at = 0; at == 0 || at < text.size();) {
    std::size_t count = std::min(most, text.size() - at);
    while (text_bytes(text.substr(at, count), format_).size() > most) --count;
    append_text(bytes, at == 0 ? code : more, text.substr(at, count), format_);
    at += std::max<std::size_t>(count, 1);
  }
  return bytes;
}

/// Texts that stay the same keep their bytes; the others are written in their place, or behind the
/// last one.
void FieldWriter::long_texts(int code, int more, const std::vector<std::string>& list) {
  struct Present {
    std::uint32_t begin, end;
    std::string text;
  };
  std::vector<Present> present;
  for (std::size_t i = range_.first(); i < range_.last(); ++i) {
    const Tag& tag = record_.tags()[i];
    if (tag.in_group || (tag.code != code && (tag.code != more || present.empty()))) continue;
    if (tag.code == code) present.push_back({tag.begin, tag.next, {}});
    present.back().end = tag.next;
    present.back().text += text_value(record_.bytes(), tag, format_);
    pass(tag);
  }
  for (std::size_t i = 0; i < std::max(present.size(), list.size()); ++i) {
    if (i >= present.size()) {
      insert(long_text(code, more, list[i]));
    } else if (i >= list.size() || present[i].text != list[i]) {
      const std::uint32_t length = present[i].end - present[i].begin;
      edits_.push_back({present[i].begin, length,
                        i < list.size() ? long_text(code, more, list[i]) : std::string()});
    }
  }
}

void FieldWriter::first_chunk(int code, const std::string& data) {
  const Tag* tag = range_.find(code);
  if (!tag) return;
  pass(*tag);
  const std::string present = chunk_value(record_.bytes(), *tag, format_);
  if (present == data || present.size() != data.size()) return;
  replace(*tag, format_.binary ? data : hexadecimal_text(data));
}

}  // namespace velmar::drawing::dxf
