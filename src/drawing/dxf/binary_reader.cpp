#include "drawing/dxf/binary_reader.h"

#include <cstdint>

namespace velmar::drawing::dxf {

/// Reads the tag at `at_` without going past it.
bool BinaryReader::next() {
  here_ = bytes_.substr(at_, UINT32_MAX);  // as much as a cursor can count
  TagCursor cursor(here_, format_);
  if (cursor.next(tag_)) return true;
  if (cursor.damaged()) {
    damage_ =
        Damage{at_, "the file breaks off, or what follows is no binary DXF; it is kept as it is"};
  }
  return false;
}

bool BinaryReader::head(HeadCollector& collector) {
  begin_ = at_;
  if (!next() || tag_.code != 0) return false;
  collector.begin(tag_.text(here_));
  at_ += tag_.next;
  while (!collector.complete() && next() && tag_.code != 0) {
    collector.take(tag_.code, tag_.text(here_), [&] {
      return static_cast<std::int32_t>(integer_value(here_, tag_, format_).value_or(0));
    });
    at_ += tag_.next;
  }
  return true;
}

std::size_t BinaryReader::end_of_record() {
  damage_.reset();
  while (next() && tag_.code != 0) at_ += tag_.next;
  if (damage_) at_ = bytes_.size();
  return at_;
}

std::size_t BinaryReader::pass_nameless() {
  at_ = begin_;
  next();
  const Damage nameless = no_name(at_, tag_.text(here_));
  at_ += tag_.next;
  end_of_record();
  if (!damage_) damage_ = nameless;
  return at_;
}

}  // namespace velmar::drawing::dxf
