#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "drawing/drawing.h"

namespace velmar::render {

/// The tags of a record one after the other; points are put together of their coordinates.
class TagReader {
 public:
  TagReader(const drawing::Drawing& drawing, drawing::RecordId id) : tags_(drawing.tags(id)) {}

  bool next() { return ++at_ <= tags_.size(); }
  int code() const { return tag().code; }
  double number() const {
    if (const double* const real = std::get_if<double>(&tag().value)) return *real;
    const auto* const whole = std::get_if<std::int64_t>(&tag().value);
    return whole != nullptr ? static_cast<double>(*whole) : 0;
  }
  std::int64_t integer() const {
    const auto* const whole = std::get_if<std::int64_t>(&tag().value);
    return whole != nullptr ? *whole : 0;
  }
  std::string text() const {
    const std::string* const text = std::get_if<std::string>(&tag().value);
    return text != nullptr ? *text : std::string();
  }
  /// Whose x is the tag that it stands at.
  drawing::Point point() const {
    drawing::Point point{number(), 0, 0};
    if (const double* const y = coordinate(1)) point.y = *y;
    if (const double* const z = coordinate(2)) point.z = *z;
    return point;
  }
  drawing::Handle handle() const { return drawing::parse_handle(text()); }

 private:
  const drawing::TagValue& tag() const { return tags_[at_ - 1]; }
  const double* coordinate(std::size_t which) const {
    const std::size_t at = at_ - 1 + which;
    if (at >= tags_.size() || tags_[at].code != code() + 10 * static_cast<int>(which)) {
      return nullptr;
    }
    return std::get_if<double>(&tags_[at].value);
  }

  std::vector<drawing::TagValue> tags_;
  std::size_t at_ = 0;
};

}  // namespace velmar::render
