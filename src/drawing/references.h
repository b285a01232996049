#pragma once

#include <string_view>

#include "drawing/dxf/tag.h"
#include "drawing/error.h"

namespace velmar::drawing {

/// What a group code says of the handle that is its value. (DXF reference, "Group code value
/// types".)
enum class Reference { none, soft_pointer, hard_pointer, soft_owner, hard_owner, any };

constexpr Reference reference_of(int code) {
  if (code >= 330 && code <= 339) return Reference::soft_pointer;
  if (code >= 340 && code <= 349) return Reference::hard_pointer;
  if (code >= 350 && code <= 359) return Reference::soft_owner;
  if (code >= 360 && code <= 369) return Reference::hard_owner;
  if ((code >= 390 && code <= 399) || code == 480 || code == 481) return Reference::hard_pointer;
  return (code >= 320 && code <= 329) || code == 1005 ? Reference::any : Reference::none;
}

/// The owner that a record names in its head; 0 where it names none.
Handle owner_named(std::string_view record, const dxf::Format& format);

/// Calls `visit(tag, handle)` for each tag of a record that names something else by its handle, the
/// owner among them.
template <class Visit>
void each_reference(std::string_view record, const dxf::Format& format, Visit visit) {
  dxf::TagCursor cursor(record, format);
  dxf::Tag tag;
  while (cursor.next(tag)) {
    if (reference_of(tag.code) == Reference::none) continue;
    if (const Handle handle = parse_handle(tag.text(record)); handle != 0) visit(tag, handle);
  }
}

}  // namespace velmar::drawing
