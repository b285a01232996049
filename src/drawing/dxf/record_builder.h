#pragma once

#include <string>
#include <string_view>

#include "drawing/dxf/tag.h"
#include "drawing/error.h"
#include "drawing/geometry/point.h"

namespace velmar::drawing::dxf {

/// Writes a new record tag by tag. Markers and owners are left out where the format has none.
class RecordBuilder {
 public:
  RecordBuilder(std::string_view kind, const Format& format) : format_(format) { text(0, kind); }

  RecordBuilder& text(int code, std::string_view value) {
    append_text(bytes_, code, value, format_);
    return *this;
  }
  RecordBuilder& integer(int code, std::int64_t value) {
    append_integer(bytes_, code, value, format_);
    return *this;
  }
  RecordBuilder& real(int code, double value) {
    append_real(bytes_, code, value, format_);
    return *this;
  }
  RecordBuilder& point(int code, Point p) { return flat(code, p).real(code + 20, p.z); }
  RecordBuilder& flat(int code, Point p) { return real(code, p.x).real(code + 10, p.y); }
  RecordBuilder& handle(int code, Handle handle) { return text(code, handle_text(handle)); }
  RecordBuilder& owner(Handle owner) {
    return format_.has_subclasses() ? handle(330, owner) : *this;
  }
  RecordBuilder& marker(std::string_view name) {
    return format_.has_subclasses() ? text(100, name) : *this;
  }

  std::string bytes() const { return bytes_; }

 private:
  const Format& format_;
  std::string bytes_;
};

}  // namespace velmar::drawing::dxf
