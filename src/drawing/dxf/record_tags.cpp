#include "drawing/dxf/record_tags.h"

#include <algorithm>

namespace velmar::drawing::dxf {

namespace {

/// Room for the tags of a record: what does for an ordinary one, and just enough for a giant, whose
/// list would else be moved, and its memory doubled, again and again.
std::size_t room_for(std::string_view bytes, const Format& format) {
  constexpr std::size_t ordinary = 96, giant = 1 << 20;
  if (bytes.size() < giant || format.binary) return ordinary;
  return static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), format.line_end)) / 2 + 1;
}

}  // namespace

RecordTags::RecordTags(std::string_view bytes, const Format& format)
    : bytes_(bytes), format_(format) {
  tags_.reserve(room_for(bytes, format));
  TagCursor cursor(bytes, format);
  Tag tag;
  bool in_group = false;
  bool in_xdata = false;
  while (cursor.next(tag)) {
    if (tag.code == 102) in_group = tag.text(bytes).starts_with('{');
    tag.in_group = in_group;
    if (tag.code == 100) has_markers_ = true;
    if (!in_xdata && tag.code >= 1000) {
      in_xdata = true;
      xdata_ = tags_.size();
    }
    tags_.push_back(tag);
  }
  if (!in_xdata) xdata_ = tags_.size();
  damaged_ = cursor.damaged();
}

std::uint32_t RecordTags::xdata_offset() const {
  if (xdata_ < tags_.size()) return tags_[xdata_].begin;
  return tags_.empty() ? 0 : tags_.back().next;
}

template <class Wanted>
bool TagRange::advance(Wanted wanted) {
  const auto& tags = record_.tags();
  for (std::size_t i = first_; i < record_.xdata(); ++i) {
    if (tags[i].code != 100 || !wanted(record_.text(tags[i]))) continue;
    first_ = i + 1;
    last_ = end_of_part(first_);
    return true;
  }
  last_ = record_.xdata();
  return false;
}

std::size_t TagRange::end_of_part(std::size_t first) const {
  const auto& tags = record_.tags();
  while (first < record_.xdata() && tags[first].code != 100 && tags[first].code != 101) ++first;
  return first;
}

bool TagRange::embedded_object() {
  const auto& tags = record_.tags();
  const bool found = record_.has_markers() && last_ < record_.xdata() && tags[last_].code == 101;
  first_ = found ? last_ + 1 : last_;
  last_ = found ? end_of_part(first_) : last_;
  return found;
}

bool TagRange::subclass(std::string_view name) {
  if (!record_.has_markers()) return false;
  return advance([&](std::string_view marker) { return marker == name; });
}

bool TagRange::any_subclass() {
  if (!record_.has_markers()) return false;
  return advance([](std::string_view marker) { return marker != "AcDbEntity"; });
}

const Tag* TagRange::find(int code) const {
  const auto& tags = record_.tags();
  for (std::size_t i = first_; i < last_; ++i) {
    if (tags[i].code == code && !tags[i].in_group) return &tags[i];
  }
  return nullptr;
}

}  // namespace velmar::drawing::dxf
