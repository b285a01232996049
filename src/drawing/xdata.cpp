#include <set>

#include "drawing/drawing.h"
#include "drawing/dxf/chunk.h"
#include "drawing/dxf/field_writer.h"
#include "drawing/dxf/record_tags.h"
#include "drawing/store.h"
#include "drawing/table_rows.h"

namespace velmar::drawing {
namespace {

constexpr int application_code = 1001;

std::string value_text(const dxf::RecordTags& record, const dxf::Tag& tag) {
  const dxf::Format& format = record.format();
  if (!format.binary) return dxf::text_value(record.bytes(), tag, format);
  switch (dxf::value_kind(tag.code)) {
    case dxf::ValueKind::text:
      return dxf::text_value(record.bytes(), tag, format);
    case dxf::ValueKind::real:
      return dxf::real_bytes(dxf::real_value(record.bytes(), tag, format).value_or(0),
                             dxf::Format{});
    case dxf::ValueKind::chunk:
      return dxf::hexadecimal_text(record.text(tag));
    default:
      return std::to_string(dxf::integer_value(record.bytes(), tag, format).value_or(0));
  }
}

/// A tag from its text, in the form of the drawing.
void append_value(std::string& out, int code, const std::string& text, const dxf::Format& format) {
  if (!format.binary || dxf::value_kind(code) == dxf::ValueKind::text) {
    return dxf::append_text(out, code, text, format);
  }
  const dxf::Format as_text;
  dxf::Tag tag;
  tag.code = code;
  tag.value_end = static_cast<std::uint32_t>(text.size());
  if (dxf::value_kind(code) == dxf::ValueKind::real) {
    return dxf::append_real(out, code, dxf::real_value(text, tag, as_text).value_or(0), format);
  }
  if (dxf::value_kind(code) != dxf::ValueKind::chunk) {
    return dxf::append_integer(out, code, dxf::integer_value(text, tag, as_text).value_or(0),
                               format);
  }
  dxf::append_code(out, code, format);
  const std::string data = dxf::hexadecimal_data(text);
  out += static_cast<char>(data.size());
  out += data;
}

/// Other programs refuse extended data of an application that the APPID table does not list.
void list_application(Store& store, const std::string& name) {
  const RecordId id = add_table_row(store, "APPID", "AcDbRegAppTableRecord");
  if (id == RecordId::none) return;
  std::string& bytes = store.patches.at(static_cast<std::uint32_t>(id));
  const dxf::RecordTags record(bytes, store.format);
  dxf::FieldWriter writer(record);
  writer.subclass("AcDbRegAppTableRecord");
  writer("Name", 2, name);
  writer("Flags", 70, std::int32_t{0});
  bytes = writer.result();
  store.rows.push_back({"APPID", name, id});
}

}  // namespace

std::vector<std::pair<int, std::string>> Drawing::read_xdata(RecordId id) const {
  const dxf::RecordTags record(store_->bytes(id), store_->format);
  std::vector<std::pair<int, std::string>> tags;
  for (std::size_t i = record.xdata(); i < record.tags().size(); ++i) {
    tags.emplace_back(record.tags()[i].code, value_text(record, record.tags()[i]));
  }
  return tags;
}

void Drawing::write_xdata(RecordId id, const std::vector<std::pair<int, std::string>>& tags) {
  std::set<std::string> replaced;
  std::vector<std::string> given;
  for (const auto& [code, text] : tags) {
    if (code == application_code) replaced.insert(text);
  }
  const dxf::RecordTags record(store_->bytes(id), store_->format);
  std::string bytes(record.bytes().substr(0, record.xdata_offset()));
  bool keep = true;
  for (std::size_t i = record.xdata(); i < record.tags().size(); ++i) {
    const dxf::Tag& tag = record.tags()[i];
    if (tag.code == application_code) keep = !replaced.contains(value_text(record, tag));
    if (keep) bytes += record.bytes().substr(tag.begin, tag.next - tag.begin);
  }
  for (std::size_t i = 0; i < tags.size(); ++i) {
    // A run of the application's name alone takes its data away.
    const bool is_name = tags[i].first == application_code;
    const bool alone = is_name && (i + 1 == tags.size() || tags[i + 1].first == application_code);
    if (is_name && !alone) given.push_back(tags[i].second);
    if (!alone) append_value(bytes, tags[i].first, tags[i].second, store_->format);
  }
  if (bytes == record.bytes()) return;
  store_->patch(id, std::move(bytes));
  for (const std::string& application : given) {
    if (!has_row("APPID", application)) list_application(*store_, application);
  }
}

}  // namespace velmar::drawing
