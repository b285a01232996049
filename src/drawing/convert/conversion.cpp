#include "drawing/convert/conversion.h"

#include <algorithm>

#include "drawing/convert/lift_from_r12.h"
#include "drawing/convert/lower_release.h"
#include "drawing/convert/lower_to_r12.h"
#include "drawing/convert/required_parts.h"
#include "drawing/convert/tag_input.h"
#include "drawing/convert/unicode_loss.h"
#include "drawing/drawing.h"
#include "drawing/dxf/tag.h"
#include "drawing/erasing.h"

namespace velmar::drawing {
namespace {

constexpr std::string_view standard_page = "ANSI_1252";

dxf::Format target_format(const Store& store, const ConversionTarget& target) {
  dxf::Format format = store.format;
  format.binary = target.binary.value_or(store.format.binary);
  format.version = target.version.value_or(store.format.version);
  format.wide_codes =
      format.version != r12 ||
      (store.format.binary && format.version == store.format.version && store.format.wide_codes);
  if (format.binary || store.format.binary) {
    format.line_end = '\n';
    format.new_line = "\r\n";
  }
  if (format.version == store.format.version) return format;
  const bool knows_page = !format.code_page_name.empty() && format.code_page.known() &&
                          CodePage::named(format.code_page_name).known();
  if (!knows_page) format.code_page_name = standard_page;
  format.code_page =
      format.version >= r2007 ? CodePage::utf8() : CodePage::named(format.code_page_name);
  return format;
}

/// Record by record, in the order of the file: nothing but the form of the values changes.
std::string in_other_form(const Store& store, const dxf::Format& format) {
  std::string out;
  if (format.binary) out = std::string("AutoCAD Binary DXF\r\n\x1a\0", 22);
  const auto append = [&](RecordId id) {
    const Record& record = store.at(id);
    if (record.is(Record::erased)) return;
    dxf::append_text(out, 0, store.kind_name(record.kind), format);
    const Tags tags = read_tags(store, id);
    try {
      for (const TagValue& tag : tags) append_tag(out, tag, format);
    } catch (const Error& error) {
      throw Error(store.where(id, 0) + ": " + error.what());
    }
  };
  auto added = store.added_before.begin();
  for (std::uint32_t position = 0; position <= store.source_count; ++position) {
    if (added != store.added_before.end() && added->first == position) {
      for (const RecordId id : (added++)->second) append(id);
    }
    if (position < store.source_count && !store.records[position].is(Record::moved)) {
      append(static_cast<RecordId>(position));
    }
  }
  return out;
}

void write_header(TagDrawing& written, const dxf::Format& format) {
  written.set_variable("$ACADVER", {1, format.version});
  written.set_variable("$DWGCODEPAGE", {3, format.code_page_name});
  written.set_variable("$HANDSEED", {5, handle_text(written.next_handle)});
  // The version stands first, for those who read no farther.
  Tags* const version = written.variable("$ACADVER");
  std::rotate(written.header.begin(), written.header.begin() + (version - written.header.data()),
              written.header.begin() + (version - written.header.data()) + 1);
}

void to_release(TagDrawing& written, const Drawing& drawing, std::string_view version,
                LossList& losses) {
  if (version == r12) return lower_to_r12(written, drawing, losses);
  if (!written.has_subclasses()) lift_from_r12(written, losses);
  if (written.version < version) raise_release(written, version, losses);
  if (written.version > version) lower_release(written, version, losses);
  add_required_parts(written);
}

}  // namespace

bool Conversion::is_lossless() const { return std::ranges::all_of(losses, &Loss::harmless); }

Conversion Drawing::convert(const ConversionTarget& target) const {
  settle_erased(*store_);
  const dxf::Format format = target_format(*store_, target);
  if (format.version == store_->format.version) {
    if (format.binary == store_->format.binary) return {bytes(), {}};
    return {in_other_form(*store_, format), {}};
  }
  LossList losses;
  TagDrawing written = take_apart(*store_);
  to_release(written, *this, format.version, losses);
  write_header(written, format);
  count_unicode_losses(written, format, losses);
  return {file_bytes(written, format), losses.take()};
}

}  // namespace velmar::drawing
