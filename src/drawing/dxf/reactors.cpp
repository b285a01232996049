#include "drawing/dxf/reactors.h"

#include "drawing/dxf/record_tags.h"

namespace velmar::drawing::dxf {
namespace {

constexpr std::string_view group_name = "{ACAD_REACTORS";

/// The tags of the group, from its 102 to its closing one; both 0 where there is none.
struct Group {
  std::size_t begin = 0, end = 0;
};

Group find_group(const RecordTags& record) {
  for (std::size_t i = 1; i < record.xdata(); ++i) {
    if (record.tags()[i].code != 102 || record.text(record.tags()[i]) != group_name) continue;
    std::size_t end = i + 1;
    while (end < record.xdata() && record.tags()[end].code != 102) ++end;
    if (end < record.xdata()) return {i, end};
  }
  return {};
}

bool names(const RecordTags& record, const Tag& tag, Handle reactor) {
  return tag.code == 330 && parse_handle(record.text(tag)) == reactor;
}

}  // namespace

std::string with_reactor(std::string_view bytes, Handle reactor, const Format& format) {
  const RecordTags record(bytes, format);
  const auto& tags = record.tags();
  const Group group = find_group(record);
  std::string added;
  std::uint32_t at = 0;
  if (group.end > 0) {
    for (std::size_t i = group.begin; i < group.end; ++i) {
      if (names(record, tags[i], reactor)) return std::string(bytes);
    }
    at = tags[group.end].begin;
    append_text(added, 330, handle_text(reactor), format);
  } else {
    // Behind the handle.
    at = tags.size() > 1 && tags[1].code == 5 ? tags[1].next : tags.front().next;
    append_text(added, 102, group_name, format);
    append_text(added, 330, handle_text(reactor), format);
    append_text(added, 102, "}", format);
  }
  return std::string(bytes.substr(0, at)).append(added).append(bytes.substr(at));
}

std::string without_reactor(std::string_view bytes, Handle reactor, const Format& format) {
  const RecordTags record(bytes, format);
  const auto& tags = record.tags();
  const Group group = find_group(record);
  for (std::size_t i = group.begin; i < group.end; ++i) {
    if (!names(record, tags[i], reactor)) continue;
    const bool is_last = group.end - group.begin == 2;
    const std::uint32_t from = is_last ? tags[group.begin].begin : tags[i].begin;
    const std::uint32_t to = is_last ? tags[group.end].next : tags[i].next;
    return std::string(bytes.substr(0, from)).append(bytes.substr(to));
  }
  return std::string(bytes);
}

}  // namespace velmar::drawing::dxf
