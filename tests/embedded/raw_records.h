#pragma once

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "drawing/drawing.h"

namespace velmar::embedded {

/// A record as it stands in a file.
struct RawRecord {
  std::string kind;
  drawing::Handle handle = 0;  // 0: the file gives none
  std::string bytes;
  friend auto operator<=>(const RawRecord&, const RawRecord&) = default;
};

/// Of a text file found without the reader under test; of a binary one as that decodes it.
inline std::vector<RawRecord> raw_records(const drawing::Drawing& drawing) {
  std::vector<RawRecord> records;
  if (drawing.is_binary()) {
    for (std::uint32_t i = 0; i < drawing.size(); ++i) {
      const auto id = static_cast<drawing::RecordId>(i);
      if (drawing.record(id).is(drawing::Record::erased)) continue;
      RawRecord& record = records.emplace_back();
      record.kind = drawing.kind_name(id);
      record.handle = drawing.record(id).handle;
      for (const drawing::TagValue& tag : drawing.tags(id)) {
        record.bytes += std::to_string(tag.code) + "\n";
        std::visit(
            [&]<class T>(const T& value) {
              if constexpr (std::is_same_v<T, std::string>) {
                record.bytes += value;
              } else {
                record.bytes.append(reinterpret_cast<const char*>(&value), sizeof(value));
              }
            },
            tag.value);
        record.bytes += "\n";
      }
    }
    return records;
  }
  const std::string bytes = drawing.bytes();
  const auto line = [&](std::size_t& at) {
    const std::size_t end = std::min(bytes.find('\n', at), bytes.size());
    std::string text = bytes.substr(at, end - at);
    at = std::min(end + 1, bytes.size());
    while (!text.empty() && (text.back() == '\r' || text.back() == ' ')) text.pop_back();
    return text.substr(std::min(text.find_first_not_of(' '), text.size()));
  };
  for (std::size_t at = 0; at < bytes.size();) {
    const std::size_t begin = at;
    const std::string code = line(at), value = line(at);
    if (code == "0" || records.empty()) records.emplace_back().kind = value;
    RawRecord& record = records.back();
    const bool is_handle = code == (record.kind == "DIMSTYLE" ? "105" : "5");
    if (is_handle && record.handle == 0) record.handle = drawing::parse_handle(value);
    record.bytes += bytes.substr(begin, at - begin);
  }
  return records;
}

/// Those of `a` that `b` does not have just so.
inline std::vector<RawRecord> missing(const std::vector<RawRecord>& a,
                                      const std::vector<RawRecord>& b) {
  const std::multiset<RawRecord> from(a.begin(), a.end()), without(b.begin(), b.end());
  std::vector<RawRecord> result;
  std::ranges::set_difference(from, without, std::back_inserter(result));
  return result;
}

/// The record as it would be if nothing followed it.
inline RawRecord without_reactors(RawRecord record) {
  for (const std::string new_line : {"\r\n", "\n"}) {
    const std::size_t begin = record.bytes.find("{ACAD_REACTORS" + new_line);
    if (begin == std::string::npos) continue;
    const std::size_t end = record.bytes.find("102" + new_line + "}", begin);
    record.bytes.erase(begin, end - begin);
    const std::string empty_group = "102" + new_line + "102" + new_line + "}" + new_line;
    const std::size_t group = record.bytes.find(empty_group);
    if (group != std::string::npos) record.bytes.erase(group, empty_group.size());
  }
  return record;
}

inline std::set<RawRecord> without_reactors(const std::vector<RawRecord>& records) {
  std::set<RawRecord> stripped;
  for (const RawRecord& record : records) stripped.insert(without_reactors(record));
  return stripped;
}

}  // namespace velmar::embedded
