#pragma once

#include <string>

#include "drawing/dxf/field_reader.h"
#include "drawing/geometry/point.h"
#include "drawing/header_variables.h"

namespace velmar::drawing::dxf {

struct LayoutFields {
  std::string name, block_record;
  std::int32_t tab = 0;
};

/// Reads the records that the structure of a drawing is made of.
class RecordReader {
 public:
  RecordReader(std::string_view bytes, const Format& format) : record_(bytes, format) {}

  /// The first value of that code anywhere; empty, 0 or the origin where there is none.
  std::string first_text(int code) const;
  std::int64_t first_integer(int code) const;
  Point first_point(int code) const;
  /// The first value of a header variable, as text.
  std::string variable(std::string_view name) const;
  /// The same of all.
  HeaderVariables variables() const;
  std::optional<Point> point_variable(std::string_view name) const;
  LayoutFields layout() const;
  template <class Row>
  void read(Row& row) const {
    FieldReader reader(record_);
    fields(reader, row);
  }

 private:
  const Tag* first(int code) const;

  RecordTags record_;
};

}  // namespace velmar::drawing::dxf
