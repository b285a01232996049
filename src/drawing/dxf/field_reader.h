#pragma once

#include <numbers>
#include <optional>
#include <string>

#include "drawing/dxf/record_tags.h"
#include "drawing/entities/field.h"
#include "drawing/geometry/bulge.h"

namespace velmar::drawing::dxf {

/// A value that is not what its group code demands.
struct Problem {
  std::uint32_t offset = 0;  // within the record
  std::string text;          // "group 10: expected a number, found "abc""
};

inline constexpr double radians_of_degree = std::numbers::pi / 180;

/// The visitor that fills an entity from a record. Fields that the record does not have keep their
/// values. The first problem is kept; the reading goes on.
class FieldReader {
 public:
  explicit FieldReader(const RecordTags& record) : record_(record), range_(record) {}
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
  template <class List>
  void count(int, const List&) {}
  void vertices(std::vector<BulgeVertex>& list);

  const std::optional<Problem>& problem() const { return problem_; }

 private:
  bool read(int code, double& value);
  bool read(int code, std::int32_t& value);
  bool read(int code, std::string& value);
  bool read(int code, Point& value);
  bool read(int code, Ocs& value) { return read(code, value.point); }
  bool read(int code, Degrees& value);
  bool read(int code, Chunked& value);
  bool take_real(const Tag& tag, double& value);
  void report(const Tag& tag, std::string_view expected);

  const RecordTags& record_;
  TagRange range_;
  std::optional<Problem> problem_;
};

}  // namespace velmar::drawing::dxf
