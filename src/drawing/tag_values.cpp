#include "drawing/drawing.h"
#include "drawing/dxf/record_tags.h"
#include "drawing/store.h"

namespace velmar::drawing {
namespace {

TagValue decoded(const dxf::RecordTags& record, const dxf::Tag& tag, const dxf::Format& format) {
  switch (dxf::value_kind(tag.code)) {
    case dxf::ValueKind::real:
      if (const auto real = dxf::real_value(record.bytes(), tag, format)) return {tag.code, *real};
      break;
    case dxf::ValueKind::int16:
    case dxf::ValueKind::int32:
    case dxf::ValueKind::int64:
    case dxf::ValueKind::flag:
      if (const auto integer = dxf::integer_value(record.bytes(), tag, format)) {
        return {tag.code, *integer};
      }
      break;
    case dxf::ValueKind::text:
    case dxf::ValueKind::chunk:
      break;
  }
  return {tag.code, dxf::text_value(record.bytes(), tag, format)};
}

}  // namespace

std::vector<TagValue> Drawing::tags(RecordId id) const {
  const dxf::RecordTags record(store_->bytes(id), store_->format);
  std::vector<TagValue> values;
  values.reserve(record.tags().size());
  for (const dxf::Tag& tag : record.tags()) {
    values.push_back(decoded(record, tag, store_->format));
  }
  return values;
}

}  // namespace velmar::drawing
