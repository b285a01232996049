#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include "drawing/dxf/record_tags.h"
#include "drawing/dxf/row_reader.h"
#include "drawing/dxf/row_writer.h"
#include "drawing/dxf/tag_edit.h"
#include "drawing/entities/field.h"
#include "drawing/geometry/bulge.h"

namespace velmar::drawing::dxf {

/// The visitor that brings a record to the values of an entity. A tag whose value reads as the
/// field already is left as it stands, byte for byte; another one gets a new value; a field that
/// the record does not have is put in, unless it has its default value. Tags that no field names
/// stay.
class FieldWriter {
 public:
  /// With `complete`, subclass markers that are missing are put in: for new records.
  explicit FieldWriter(const RecordTags& record, bool complete = false);

  void subclass(std::string_view name);
  void any_subclass();
  /// Its fields are written where it has them, and never put in.
  bool embedded_object();

  template <class T>
  void operator()(std::string_view /*name*/, int code, const T& field) {
    write(code, field, false);
  }
  template <class T, class Default>
  void operator()(std::string_view /*name*/, int code, const T& field,
                  const unless<Default>& omitted) {
    write(code, field, value_of(field) == omitted.value);
  }
  template <class List>
  void count(int code, const List& list) {
    write(code, static_cast<std::int32_t>(list.size()), false);
  }
  void vertices(const std::vector<BulgeVertex>& list);
  void repeated(int code, const std::vector<double>& list);
  void repeated(int code, const std::vector<Point>& list);
  template <class T>
  void row(int code, std::vector<T>& list) {
    const Tag* begin = range_.find(code);
    const std::size_t first = begin ? range_.position(begin) : 0;
    std::size_t last = first;
    if (begin) {
      RowReader present(record_, first, range_.last());
      std::vector<T> present_list;
      present.list(code, present_list);
      last = present.at();
    }
    RowWriter writer(record_, first, last);
    writer.list(code, list);
    take_row(writer, first, last, list.empty());
  }
  void absent(std::initializer_list<int> codes);
  void long_texts(int code, int more, const std::vector<std::string>& list);
  void first_chunk(int code, const std::string& data);

  bool changed() const { return !edits_.empty(); }
  /// The bytes of the record with all edits.
  std::string result() const;

 private:
  static const Point& value_of(const Ocs& field) { return field.point; }
  static double value_of(const Degrees& field) { return field.radians; }
  static const std::string& value_of(const Chunked& field) { return field.text; }
  template <class T>
  static const T& value_of(const T& field) {
    return field;
  }

  void write(int code, double value, bool omit);
  void write(int code, std::int32_t value, bool omit);
  void write(int code, const std::string& value, bool omit);
  void write(int code, const Point& value, bool omit);
  void write(int code, const Ocs& value, bool omit) { write(code, value.point, omit); }
  void write(int code, const Degrees& value, bool omit);
  void write(int code, const Chunked& value, bool omit);
  void write_real(const Tag& tag, double value);
  void replace(const Tag& tag, std::string bytes);
  void insert(std::string bytes);
  void pass(const Tag& tag) { insert_at_ = std::max(insert_at_, tag.next); }
  void enter(bool found);
  std::string chunks(int code, const Chunked& value) const;
  std::string long_text(int code, int more, std::string_view text) const;
  void take_row(const RowWriter& row, std::size_t first, std::size_t last, bool omit);
  /// All tags of these codes in the range, which are replaced.
  void replace_run(std::initializer_list<int> codes, std::string bytes);
  void append_vertex(std::string& out, const BulgeVertex& vertex) const;

  const RecordTags& record_;
  const Format& format_;
  TagRange range_;
  bool complete_;
  bool only_present_ = false;
  std::uint32_t insert_at_;
  std::vector<TagEdit> edits_;
};

}  // namespace velmar::drawing::dxf
