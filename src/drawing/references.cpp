#include "drawing/references.h"

namespace velmar::drawing {

Handle owner_named(std::string_view record, const dxf::Format& format) {
  dxf::TagCursor cursor(record, format);
  dxf::Tag tag;
  bool in_group = false;
  while (cursor.next(tag) && tag.code < 1000) {
    if (tag.code == 102) in_group = tag.text(record).starts_with('{');
    if (tag.code == 330 && !in_group) return parse_handle(tag.text(record));
    if (tag.code == 100 && tag.text(record) != "AcDbEntity") return 0;
  }
  return 0;
}

}  // namespace velmar::drawing
