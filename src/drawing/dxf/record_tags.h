#pragma once

#include <array>
#include <cstddef>
#include <memory_resource>
#include <string_view>
#include <vector>

#include "drawing/dxf/tag.h"

namespace velmar::drawing::dxf {

/// The tags of one record. Those of an ordinary record are kept on the stack.
class RecordTags {
 public:
  RecordTags(std::string_view bytes, const Format& format);
  RecordTags(const RecordTags&) = delete;
  RecordTags& operator=(const RecordTags&) = delete;

  std::string_view bytes() const { return bytes_; }
  const Format& format() const { return format_; }
  const std::pmr::vector<Tag>& tags() const { return tags_; }
  /// Where extended data begins; the number of tags if there is none.
  std::size_t xdata() const { return xdata_; }
  /// Offset where extended data begins, or the end.
  std::uint32_t xdata_offset() const;
  bool has_markers() const { return has_markers_; }
  bool damaged() const { return damaged_; }
  std::string_view text(const Tag& tag) const { return tag.text(bytes_); }

 private:
  std::string_view bytes_;
  const Format& format_;
  std::array<std::byte, 4096> buffer_;  // of memory_
  std::pmr::monotonic_buffer_resource memory_{buffer_.data(), buffer_.size()};
  std::pmr::vector<Tag> tags_{&memory_};
  std::size_t xdata_ = 0;
  bool has_markers_ = false;
  bool damaged_ = false;
};

/// The part of a record in which a field list looks for its group codes: a subclass, or, in a
/// record without subclass markers (R12), all of it. Extended data and application groups are no
/// part of it.
class TagRange {
 public:
  explicit TagRange(const RecordTags& record) : record_(record), last_(record.xdata()) {}

  /// Goes on to the next subclass of that name; false (and the whole record is searched) if there
  /// is none.
  bool subclass(std::string_view name);
  /// Goes on to the next subclass but AcDbEntity.
  bool any_subclass();
  /// Goes on to an object that is embedded in the subclass (behind group 101), of which the
  /// subclass itself does not see the tags; false, and nothing is found, where there is none.
  bool embedded_object();
  /// The first tag of that code in the range, or null.
  const Tag* find(int code) const;
  /// Where in the record's list of tags one is that find() gave.
  std::size_t position(const Tag* tag) const {
    return static_cast<std::size_t>(tag - record_.tags().data());
  }
  std::size_t first() const { return first_; }
  std::size_t last() const { return last_; }

 private:
  template <class Wanted>
  bool advance(Wanted wanted);
  std::size_t end_of_part(std::size_t first) const;

  const RecordTags& record_;
  std::size_t first_ = 1, last_;
};

}  // namespace velmar::drawing::dxf
