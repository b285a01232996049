#include "drawing/dxf/field_reader.h"

#include <limits>

#include "drawing/dxf/chunk.h"

namespace velmar::drawing::dxf {

void FieldReader::report(const Tag& tag, std::string_view expected) {
  if (!problem_) problem_ = problem_at(record_, tag, expected);
}

bool FieldReader::take_real(const Tag& tag, double& value) {
  const auto read = real_value(record_.bytes(), tag, record_.format());
  if (!read) report(tag, "a number");
  if (read) value = *read;
  return read.has_value();
}

bool FieldReader::read(int code, double& value) {
  const Tag* tag = range_.find(code);
  return tag && take_real(*tag, value);
}

bool FieldReader::read(int code, std::int32_t& value) {
  using Limits = std::numeric_limits<std::int32_t>;
  const Tag* tag = range_.find(code);
  if (!tag) return false;
  const auto read = integer_value(record_.bytes(), *tag, record_.format());
  if (!read || *read < Limits::min() || *read > Limits::max()) {
    report(*tag, "a whole number");
    return false;
  }
  value = static_cast<std::int32_t>(*read);
  return true;
}

bool FieldReader::read(int code, std::string& value) {
  const Tag* tag = range_.find(code);
  if (tag) value = text_value(record_.bytes(), *tag, record_.format());
  return tag != nullptr;
}

bool FieldReader::read(int code, Point& value) {
  if (!read(code, value.x)) return false;
  read(code + 10, value.y);
  read(code + 20, value.z);
  return true;
}

bool FieldReader::read(int code, Degrees& value) {
  double degrees = 0;
  if (!read(code, degrees)) return false;
  value.radians = degrees * radians_of_degree;
  return true;
}

bool FieldReader::read(int code, Chunked& value) {
  const auto& tags = record_.tags();
  std::string joined;  // before it is decoded: a character may be cut between two pieces
  for (std::size_t i = range_.first(); i < range_.last(); ++i) {
    if (tags[i].code == value.before && !tags[i].in_group) joined += record_.text(tags[i]);
  }
  const Tag* last = range_.find(code);
  if (last) joined += record_.text(*last);
  if (!joined.empty() || last) value.text = decode_text(joined, record_.format());
  return last != nullptr;
}

template <>
void FieldReader::repeated(int code, std::vector<double>& list) {
  list.clear();
  for (std::size_t i = range_.first(); i < range_.last(); ++i) {
    const Tag& tag = record_.tags()[i];
    if (!tag.in_group && tag.code == code) take_real(tag, list.emplace_back());
  }
}

template <>
void FieldReader::repeated(int code, std::vector<Point>& list) {
  list.clear();
  for (std::size_t i = range_.first(); i < range_.last(); ++i) {
    const Tag& tag = record_.tags()[i];
    if (tag.in_group) continue;
    if (tag.code == code) take_real(tag, list.emplace_back().x);
    if (list.empty()) continue;
    if (tag.code == code + 10) take_real(tag, list.back().y);
    if (tag.code == code + 20) take_real(tag, list.back().z);
  }
}

void FieldReader::long_texts(int code, int more, std::vector<std::string>& list) {
  list.clear();
  for (std::size_t i = range_.first(); i < range_.last(); ++i) {
    const Tag& tag = record_.tags()[i];
    if (tag.in_group) continue;
    if (tag.code == code) list.emplace_back();
    const bool counts = tag.code == code || (tag.code == more && !list.empty());
    if (counts) list.back() += text_value(record_.bytes(), tag, record_.format());
  }
}

void FieldReader::first_chunk(int code, std::string& data) {
  const Tag* tag = range_.find(code);
  data = tag ? chunk_value(record_.bytes(), *tag, record_.format()) : std::string();
}

void FieldReader::vertices(std::vector<BulgeVertex>& list) {
  list.clear();
  const auto& tags = record_.tags();
  for (std::size_t i = range_.first(); i < range_.last(); ++i) {
    const Tag& tag = tags[i];
    if (tag.in_group) continue;
    if (tag.code == 10) {
      take_real(tag, list.emplace_back().x);
    } else if (!list.empty()) {
      BulgeVertex& vertex = list.back();
      if (tag.code == 20) take_real(tag, vertex.y);
      if (tag.code == 40) take_real(tag, vertex.start_width);
      if (tag.code == 41) take_real(tag, vertex.end_width);
      if (tag.code == 42) take_real(tag, vertex.bulge);
    }
  }
}

}  // namespace velmar::drawing::dxf
