#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "drawing/dxf/format.h"

namespace velmar::drawing::dxf {

/// What a group code says about its value. (DXF reference, "Group code value types".)
enum class ValueKind : std::uint8_t { text, real, int16, int32, int64, flag, chunk };
ValueKind value_kind(int code);

/// A group code and its value, as offsets into the bytes of a record.
struct Tag {
  std::int32_t code = 0;
  bool in_group = false;    // within 102 "{NAME" ... 102 "}"
  std::uint32_t begin = 0;  // of the group code
  std::uint32_t value = 0, value_end = 0;
  std::uint32_t next = 0;  // behind the value and its line end

  std::string_view text(std::string_view bytes) const {
    return bytes.substr(value, value_end - value);
  }
};

/// Reads the tags of some bytes one after the other, in either form.
class TagCursor {
 public:
  TagCursor(std::string_view bytes, const Format& format, std::uint32_t from = 0)
      : bytes_(bytes), format_(format), at_(from) {}

  /// False at the end, and where what follows is no tag: then damaged() tells.
  bool next(Tag& tag) { return format_.binary ? next_binary(tag) : next_text(tag); }
  bool damaged() const { return damaged_; }
  /// Where the next tag begins, or the damage.
  std::uint32_t at() const { return at_; }

 private:
  bool next_text(Tag& tag);
  bool next_binary(Tag& tag);
  bool stop(bool damaged) {
    damaged_ = damaged;
    return false;
  }

  std::string_view bytes_;
  const Format& format_;
  std::uint32_t at_;
  bool damaged_ = false;
};

/// The number on a group code line (blanks around it allowed); nothing if it is none.
std::optional<std::int32_t> group_code(std::string_view line);

// Values. Nothing where a text value is no such number.
std::optional<double> real_value(std::string_view bytes, const Tag& tag, const Format& format);
std::optional<std::int64_t> integer_value(std::string_view bytes, const Tag& tag,
                                          const Format& format);
/// UTF-8, with `\U+XXXX`, `\M+nXXXX` and the caret forms of control characters resolved.
std::string text_value(std::string_view bytes, const Tag& tag, const Format& format);
/// A value of any kind but a chunk, as a text drawing has it.
std::string value_as_text(std::string_view bytes, const Tag& tag, const Format& format);
std::string decode_text(std::string_view raw, const Format& format);
/// UTF-8 with the caret forms resolved, but `\U+XXXX` and `\M+nXXXX` as the file has them.
std::string text_as_written(std::string_view raw, const Format& format);

// Writing.
void append_code(std::string& out, int code, const Format& format);
void append_real(std::string& out, int code, double value, const Format& format);
void append_integer(std::string& out, int code, std::int64_t value, const Format& format);
void append_text(std::string& out, int code, std::string_view utf8, const Format& format);
/// The bytes between group code and line end alone.
std::string real_bytes(double value, const Format& format);
std::string integer_bytes(int code, std::int64_t value, const Format& format);
std::string text_bytes(std::string_view utf8, const Format& format);

}  // namespace velmar::drawing::dxf
