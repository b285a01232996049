#include "drawing/faults.h"

#include <algorithm>

namespace velmar::drawing {

void Faults::add(std::string_view sort, RecordId id, std::size_t offset, std::string text) {
  auto count = counts_.find(sort);
  if (count == counts_.end()) count = counts_.emplace(std::string(sort), 0).first;
  if (++count->second <= most_of_a_sort) faults_.push_back({id, offset, std::move(text)});
}

void Faults::add_once(std::string_view sort, RecordId id, std::size_t offset, std::string text) {
  if (told_.insert(text).second) add(sort, id, offset, std::move(text));
}

std::vector<Warning> Faults::list() const {
  std::vector<Fault> ordered = faults_;
  std::stable_sort(ordered.begin(), ordered.end(),
                   [](const Fault& a, const Fault& b) { return a.id < b.id; });
  std::vector<Warning> warnings;
  const std::string_view source = store_.source.bytes();
  std::size_t counted_to = 0;
  std::uint64_t line = 1;
  for (const Fault& fault : ordered) {
    const Record& record = store_.at(fault.id);
    Warning& warning = warnings.emplace_back(Warning{0, record.handle, fault.text});
    // What was edited stands on no line of the file.
    if (record.is(Record::added) || record.is(Record::patched)) continue;
    const std::size_t at = std::max(counted_to, record.begin + fault.offset);
    if (store_.format.binary) {
      warning.line = at;
      continue;
    }
    const std::string_view passed = source.substr(counted_to, at - counted_to);
    line += static_cast<std::uint64_t>(
        std::count(passed.begin(), passed.end(), store_.format.line_end));
    counted_to = at;
    warning.line = line;
  }
  for (const auto& [sort, count] : counts_) {
    if (count <= most_of_a_sort) continue;
    warnings.push_back(
        {0, 0,
         std::to_string(count - most_of_a_sort) + " more faults of the sort \"" + sort + '"'});
  }
  return warnings;
}

}  // namespace velmar::drawing
