#include "drawing/convert/unicode_loss.h"

#include <algorithm>

#include "drawing/convert/release.h"

namespace velmar::drawing {
namespace {

bool is_plain(std::string_view text) {
  return std::ranges::all_of(text, [](char c) { return c >= 0; });
}

bool is_escaped(std::string_view text, const dxf::Format& format) {
  if (is_plain(text)) return text.find("\\U+") != std::string_view::npos;
  return format.code_page.from_utf8(text).find("\\U+") != std::string_view::npos;
}

}  // namespace

void count_unicode_losses(TagDrawing& drawing, const dxf::Format& format, LossList& losses) {
  if (format.version >= r2007) return;
  const std::string what = "texts with characters that " + format.code_page_name + " does not have";
  drawing.each([&](const TagRecord& record) {
    const bool any = std::ranges::any_of(record.tags, [&](const TagValue& tag) {
      const auto* const text = std::get_if<std::string>(&tag.value);
      return text != nullptr && is_escaped(*text, format);
    });
    if (!any) return;
    if (format.version == r12) {
      losses.add(what, "written as \\U+XXXX, which R12 shows as it stands", record.handle);
    } else {
      losses.note(what, "written as \\U+XXXX", record.handle);
    }
  });
}

}  // namespace velmar::drawing
