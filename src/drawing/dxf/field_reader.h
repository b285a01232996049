#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

#include "drawing/dxf/problem.h"
#include "drawing/dxf/record_tags.h"
#include "drawing/dxf/row_reader.h"
#include "drawing/entities/field.h"
#include "drawing/geometry/bulge.h"

namespace velmar::drawing::dxf {

/// The visitor that fills an entity from a record. Fields that the record does not have keep their
/// values. The first problem is kept; the reading goes on.
class FieldReader {
 public:
  explicit FieldReader(const RecordTags& record) : record_(record), range_(record) {}
  /// Goes on within a part of the record.
  FieldReader(const RecordTags& record, const TagRange& range) : record_(record), range_(range) {}

  void subclass(std::string_view name) { range_.subclass(name); }
  void any_subclass() { range_.any_subclass(); }
  bool embedded_object() { return false; }  // it repeats what the subclass says

  template <class T>
  void operator()(std::string_view /*name*/, int code, T&& field) {
    read(code, field);
  }
  template <class T, class Default>
  void operator()(std::string_view /*name*/, int code, T&& field, const Default&) {
    read(code, field);
  }
  /// A place that is not given is the one that it need not be given for.
  template <class Place>
  void operator()(std::string_view /*name*/, int code, Place&& field,
                  const unless<Point>& missing) {
    if (!read(code, field)) place_of(field) = missing.value;
  }
  template <class List>
  void count(int, const List&) {}
  void vertices(std::vector<BulgeVertex>& list);
  template <class T>
  void repeated(int code, std::vector<T>& list);
  template <class T>
  void row(int code, std::vector<T>& list) {
    list.clear();
    const Tag* begin = range_.find(code);
    if (!begin) return;
    RowReader reader(record_, range_.position(begin), range_.last());
    reader.list(code, list);
    if (!problem_) problem_ = reader.problem();
  }
  void absent(std::initializer_list<int>) {}
  void long_texts(int code, int more, std::vector<std::string>& list);
  void first_chunk(int code, std::string& data);

  const std::optional<Problem>& problem() const { return problem_; }

 private:
  bool read(int code, double& value);
  bool read(int code, std::int32_t& value);
  bool read(int code, std::string& value);
  bool read(int code, Point& value);
  bool read(int code, Ocs& value) { return read(code, value.point); }
  bool read(int code, Degrees& value);
  bool read(int code, Chunked& value);
  static Point& place_of(Point& point) { return point; }
  static Point& place_of(const Ocs& ocs) { return ocs.point; }
  bool take_real(const Tag& tag, double& value);
  void report(const Tag& tag, std::string_view expected);

  const RecordTags& record_;
  TagRange range_;
  std::optional<Problem> problem_;
};

}  // namespace velmar::drawing::dxf
