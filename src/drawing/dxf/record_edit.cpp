#include "drawing/dxf/record_edit.h"

#include "drawing/dxf/record_tags.h"

namespace velmar::drawing::dxf {
namespace {

int handle_code(const RecordTags& record) {
  return !record.tags().empty() && record.text(record.tags().front()) == "DIMSTYLE" ? 105 : 5;
}

/// The head of a record: before its second subclass marker.
std::size_t head_end(const RecordTags& record) {
  for (std::size_t i = 1; i < record.xdata(); ++i) {
    const Tag& tag = record.tags()[i];
    if (tag.code == 100 && record.text(tag) != "AcDbEntity") return i;
  }
  return record.xdata();
}

void append_raw(std::string& out, const RecordTags& record, const Tag& tag) {
  out += record.bytes().substr(tag.begin, tag.next - tag.begin);
}

}  // namespace

std::string with_handle(std::string_view bytes, Handle handle, const Format& format) {
  const RecordTags record(bytes, format);
  const auto& tags = record.tags();
  const std::string text = handle_text(handle);
  for (std::size_t i = 1; i < head_end(record); ++i) {
    if (tags[i].code != handle_code(record) || tags[i].in_group) continue;
    std::string out(bytes.substr(0, tags[i].value));
    return out.append(text).append(bytes.substr(tags[i].value_end));
  }
  const std::uint32_t behind_name = tags.empty() ? 0 : tags.front().next;
  std::string out(bytes.substr(0, behind_name));
  append_text(out, handle_code(record), text, format);
  return out.append(bytes.substr(behind_name));
}

std::string copied(std::string_view bytes, Handle handle, std::optional<Handle> owner,
                   const Format& format) {
  const RecordTags record(bytes, format);
  std::string out;
  bool own_group = false;
  bool owner_met = false;
  const std::size_t end_of_head = head_end(record);
  for (std::size_t i = 0; i < record.tags().size(); ++i) {
    const Tag& tag = record.tags()[i];
    const bool begins_group = tag.code == 102 && record.text(tag).starts_with("{ACAD_");
    own_group = own_group || begins_group;
    if (own_group) {
      own_group = tag.code != 102 || begins_group;
      continue;
    }
    if (owner && tag.code == 330 && !tag.in_group && !owner_met && i < end_of_head) {
      owner_met = true;
      append_text(out, 330, handle_text(*owner), format);
    } else {
      append_raw(out, record, tag);
    }
  }
  return handle == 0 ? out : with_handle(out, handle, format);
}

std::string with_paper_mark(std::string_view bytes, bool in_paper, const Format& format) {
  constexpr int paper_code = 67, layer_code = 8;
  const RecordTags record(bytes, format);
  const std::size_t end_of_head = head_end(record);
  std::string out;
  bool missing = in_paper;
  for (std::size_t i = 0; i < record.tags().size(); ++i) {
    const Tag& tag = record.tags()[i];
    if (i < end_of_head && tag.code == paper_code && !tag.in_group) continue;
    if (missing && (i == end_of_head || (tag.code == layer_code && !tag.in_group))) {
      append_integer(out, paper_code, 1, format);
      missing = false;
    }
    append_raw(out, record, tag);
  }
  if (missing) append_integer(out, paper_code, 1, format);
  return out;
}

std::string without_preview(std::string_view bytes, const Format& format) {
  constexpr int size_code = 160, old_size_code = 92, data_code = 310;
  const RecordTags record(bytes, format);
  const std::size_t end_of_head = head_end(record);
  std::string out;
  for (std::size_t i = 0; i < record.tags().size(); ++i) {
    const Tag& tag = record.tags()[i];
    const bool is_of_preview =
        tag.code == size_code || tag.code == old_size_code || tag.code == data_code;
    if (i >= end_of_head || !is_of_preview || tag.in_group) append_raw(out, record, tag);
  }
  return out;
}

std::string with_variable(std::string_view header, std::string_view name, std::string_view value,
                          const Format& format) {
  const RecordTags record(header, format);
  const auto& tags = record.tags();
  for (std::size_t i = 0; i + 1 < tags.size(); ++i) {
    if (tags[i].code != 9 || record.text(tags[i]) != name) continue;
    std::string out(header.substr(0, tags[i + 1].value));
    return out.append(text_bytes(value, format)).append(header.substr(tags[i + 1].value_end));
  }
  return std::string(header);
}

}  // namespace velmar::drawing::dxf
