#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <variant>
#include <vector>

#include "drawing/dxf/record_tags.h"
#include "drawing/dxf/tag_edit.h"
#include "drawing/entities/field.h"

namespace velmar::drawing::dxf {

/// Brings a row of tags to the values of its elements. Where the present tags are of the same codes
/// in the same order, only values that differ are written; else the row is written anew.
class RowWriter {
 public:
  /// The tags of the row as they are now, an empty range for a row that is not there.
  RowWriter(const RecordTags& record, std::size_t first, std::size_t last)
      : record_(record), at_(first), last_(last), fits_(last > first) {}

  template <class T>
  void operator()(int code, const T& value) {
    append(code, value);
    if (!fits_) return;
    const Tag* tag = next();
    fits_ = tag && tag->code == code;
    if (!fits_) return;
    ++at_;
    if (!is_same(*tag, value)) replace(*tag, bytes_of(code, value));
  }
  template <class T, class Default>
  void operator()(int code, const T& value, const unless<Default>& missing,
                  bool in_new_rows = false) {
    const Tag* tag = next();
    const bool is_there = fits_ && tag && tag->code == code;
    if (is_there || value != missing.value) {
      (*this)(code, value);
    } else if (in_new_rows) {
      append(code, value);
    }
  }
  void plane(int code, const Point& point) {
    (*this)(code, point.x);
    (*this)(code + 10, point.y);
  }
  void plane(int code, const Point& point, const unless<Point>& missing) {
    const Tag* tag = next();
    const bool is_there = fits_ && tag && tag->code == code;
    if (is_there || point != missing.value) plane(code, point);
  }
  template <class T>
  void count(int code, const std::vector<T>& list) {
    const auto size = static_cast<std::int32_t>(list.size());
    const Tag* tag = next();
    if (tag && !is_same(*tag, size)) fits_ = false;
    (*this)(code, size);
  }
  template <class T>
  void count(int code, const std::vector<T>& list, MayBeMissing) {
    const Tag* tag = next();
    const bool lacks_it = fits_ && !(tag && tag->code == code);
    if (!lacks_it || !list.empty()) count(code, list);
  }
  template <class T>
  void list(int code, std::vector<T>& list) {
    count(code, list);
    for (T& element : list) tags(*this, element);
  }
  template <class... T>
  void alternative(int code, std::variant<T...>& value) {
    (*this)(code, static_cast<std::int32_t>(value.index() + 1));
    std::visit([&](auto& chosen) { tags(*this, chosen); }, value);
  }
  bool present(bool is_there, int, std::initializer_list<int>) { return is_there; }

  /// Whether the present tags were all there was to write.
  bool fits() const { return fits_ && at_ == last_; }
  /// Of values, where it fits.
  const std::vector<TagEdit>& edits() const { return edits_; }
  /// The whole row anew.
  const std::string& bytes() const { return bytes_; }

 private:
  const Tag* next() const { return at_ < last_ ? &record_.tags()[at_] : nullptr; }
  void append(int code, double value);
  void append(int code, std::int32_t value);
  void append(int code, const std::string& value);
  void append(int code, const Degrees& value);
  bool is_same(const Tag& tag, double value) const;
  bool is_same(const Tag& tag, std::int32_t value) const;
  bool is_same(const Tag& tag, const std::string& value) const;
  bool is_same(const Tag& tag, const Degrees& value) const;
  std::string bytes_of(int code, double value) const;
  std::string bytes_of(int code, std::int32_t value) const;
  std::string bytes_of(int code, const std::string& value) const;
  std::string bytes_of(int code, const Degrees& value) const;
  void replace(const Tag& tag, std::string bytes) {
    edits_.push_back({tag.value, tag.value_end - tag.value, std::move(bytes)});
  }

  const RecordTags& record_;
  std::size_t at_, last_;
  bool fits_;
  std::vector<TagEdit> edits_;
  std::string bytes_;
};

}  // namespace velmar::drawing::dxf
