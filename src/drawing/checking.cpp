#include "drawing/checker.h"
#include "drawing/drawing.h"
#include "drawing/dxf/record_tags.h"
#include "drawing/erasing.h"
#include "drawing/store.h"

namespace velmar::drawing {
namespace {

constexpr std::size_t most_faults = 100;

bool is_chunk(const dxf::RecordTags& record, const dxf::Tag& tag) {
  if (record.format().binary) return true;
  std::string_view text = record.text(tag);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return text.size() % 2 == 0 &&
         text.find_first_not_of("0123456789ABCDEFabcdef") == std::string_view::npos;
}

/// What the value of a text file's tag should be and is not; empty if it is.
std::string_view expected(const dxf::RecordTags& record, const dxf::Tag& tag) {
  switch (dxf::value_kind(tag.code)) {
    case dxf::ValueKind::text:
      return {};
    case dxf::ValueKind::real:
      return dxf::real_value(record.bytes(), tag, record.format()) ? "" : "a number";
    case dxf::ValueKind::chunk:
      return is_chunk(record, tag) ? "" : "pairs of hexadecimal digits";
    default:
      return dxf::integer_value(record.bytes(), tag, record.format()) ? "" : "a whole number";
  }
}

}  // namespace

std::vector<Warning> Drawing::check() const {
  std::vector<Warning> found;
  for (std::uint32_t i = 0; i < store_->records.size() && found.size() < most_faults; ++i) {
    const auto id = static_cast<RecordId>(i);
    if (store_->at(id).is(Record::erased)) continue;
    const dxf::RecordTags record(store_->bytes(id), store_->format);
    for (const dxf::Tag& tag : record.tags()) {
      const std::string_view wanted = expected(record, tag);
      if (wanted.empty()) continue;
      std::string text = "group " + std::to_string(tag.code) + ": expected " + std::string(wanted);
      if (!store_->format.binary)
        text += ", found \"" + std::string(record.text(tag).substr(0, 40)) + '"';
      found.push_back({store_->line_of(id, tag.value), store_->at(id).handle, std::move(text)});
      break;  // one for each record
    }
  }
  return found;
}

std::vector<Warning> Drawing::broken_references() const {
  settle_erased(*store_);
  Faults faults(*store_);
  check_handles(*store_, faults);
  check_names(*store_, faults);
  check_structure(*store_, faults);
  return faults.list();
}

}  // namespace velmar::drawing
