#include "drawing/dxf/row_writer.h"

#include "drawing/dxf/problem.h"

namespace velmar::drawing::dxf {

void RowWriter::append(int code, double value) {
  append_real(bytes_, code, value, record_.format());
}

void RowWriter::append(int code, std::int32_t value) {
  append_integer(bytes_, code, value, record_.format());
}

void RowWriter::append(int code, const std::string& value) {
  append_text(bytes_, code, value, record_.format());
}

void RowWriter::append(int code, const Degrees& value) {
  append(code, value.radians / radians_of_degree);
}

bool RowWriter::is_same(const Tag& tag, double value) const {
  return real_value(record_.bytes(), tag, record_.format()) == value;
}

bool RowWriter::is_same(const Tag& tag, std::int32_t value) const {
  return integer_value(record_.bytes(), tag, record_.format()) == value;
}

bool RowWriter::is_same(const Tag& tag, const std::string& value) const {
  return text_value(record_.bytes(), tag, record_.format()) == value;
}

bool RowWriter::is_same(const Tag& tag, const Degrees& value) const {
  const auto degrees = real_value(record_.bytes(), tag, record_.format());
  return degrees && *degrees * radians_of_degree == value.radians;
}

std::string RowWriter::bytes_of(int, double value) const {
  return real_bytes(value, record_.format());
}

std::string RowWriter::bytes_of(int code, std::int32_t value) const {
  return integer_bytes(code, value, record_.format());
}

std::string RowWriter::bytes_of(int, const std::string& value) const {
  return text_bytes(value, record_.format());
}

std::string RowWriter::bytes_of(int code, const Degrees& value) const {
  return bytes_of(code, value.radians / radians_of_degree);
}

}  // namespace velmar::drawing::dxf
