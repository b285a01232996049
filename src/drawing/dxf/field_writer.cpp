#include "drawing/dxf/field_writer.h"

#include <algorithm>

#include "drawing/dxf/field_reader.h"
#include "drawing/name.h"

namespace velmar::drawing::dxf {
namespace {

/// Groups 6, 7 and 8 name a linetype, a text style, a layer: the same in any letter case.
bool is_same(int code, const std::string& present, const std::string& wanted) {
  return present == wanted || (code >= 6 && code <= 8 && same_name(present, wanted));
}

}  // namespace

FieldWriter::FieldWriter(const RecordTags& record, bool complete)
    : record_(record),
      format_(record.format()),
      range_(record),
      complete_(complete),
      insert_at_(record.xdata_offset()) {}

void FieldWriter::enter(bool found) {
  insert_at_ = found ? record_.tags()[range_.first() - 1].next : record_.xdata_offset();
}

void FieldWriter::subclass(std::string_view name) {
  const bool found = range_.subclass(name);
  enter(found);
  if (found || !complete_ || !format_.has_subclasses()) return;
  std::string marker;
  append_text(marker, 100, name, format_);
  insert(std::move(marker));
}

void FieldWriter::any_subclass() { enter(range_.any_subclass()); }

bool FieldWriter::embedded_object() {
  only_present_ = true;
  return range_.embedded_object();
}

void FieldWriter::replace(const Tag& tag, std::string bytes) {
  edits_.push_back({tag.value, tag.value_end - tag.value, std::move(bytes)});
}

void FieldWriter::insert(std::string bytes) { edits_.push_back({insert_at_, 0, std::move(bytes)}); }

void FieldWriter::write_real(const Tag& tag, double value) {
  pass(tag);
  if (real_value(record_.bytes(), tag, format_) != value) replace(tag, real_bytes(value, format_));
}

void FieldWriter::write(int code, double value, bool omit) {
  if (const Tag* tag = range_.find(code)) return write_real(*tag, value);
  if (omit || only_present_) return;
  std::string bytes;
  append_real(bytes, code, value, format_);
  insert(std::move(bytes));
}

void FieldWriter::write(int code, const Degrees& value, bool omit) {
  const Tag* tag = range_.find(code);
  const auto degrees = tag ? real_value(record_.bytes(), *tag, format_) : std::nullopt;
  if (degrees && *degrees * radians_of_degree == value.radians) return pass(*tag);
  write(code, value.radians / radians_of_degree, omit);
}

void FieldWriter::write(int code, std::int32_t value, bool omit) {
  if (const Tag* tag = range_.find(code)) {
    pass(*tag);
    if (integer_value(record_.bytes(), *tag, format_) == value) return;
    return replace(*tag, integer_bytes(code, value, format_));
  }
  if (omit || only_present_) return;
  std::string bytes;
  append_integer(bytes, code, value, format_);
  insert(std::move(bytes));
}

void FieldWriter::write(int code, const std::string& value, bool omit) {
  if (const Tag* tag = range_.find(code)) {
    pass(*tag);
    if (is_same(code, text_value(record_.bytes(), *tag, format_), value)) return;
    return replace(*tag, text_bytes(value, format_));
  }
  if (omit || only_present_) return;
  std::string bytes;
  append_text(bytes, code, value, format_);
  insert(std::move(bytes));
}

std::string FieldWriter::chunks(int code, const Chunked& value) const {
  constexpr std::size_t most = 250;
  const std::string_view text = value.text;
  std::string bytes;
  std::size_t piece = 0, stored = 0;  // where the piece begins, and its bytes in the file
  for (std::size_t at = 0, next = 0; at < text.size(); at = next) {
    next = at + 1;
    while (next < text.size() && (text[next] & 0xC0) == 0x80) ++next;
    const std::size_t size = text_bytes(text.substr(at, next - at), format_).size();
    if (stored + size > most) {
      append_text(bytes, value.before, text.substr(piece, at - piece), format_);
      piece = at;
      stored = 0;
    }
    stored += size;
  }
  append_text(bytes, code, text.substr(piece), format_);
  return bytes;
}

/// New pieces stand where the first of the old ones stood.
void FieldWriter::write(int code, const Chunked& value, bool omit) {
  std::string present;
  Chunked there{present, value.before};
  FieldReader reader(record_, range_);
  reader("", code, there);
  const auto& tags = record_.tags();
  std::vector<const Tag*> pieces;
  for (std::size_t i = range_.first(); i < range_.last(); ++i) {
    const bool is_piece = tags[i].code == value.before || tags[i].code == code;
    if (is_piece && !tags[i].in_group) pieces.push_back(&tags[i]);
  }
  if (!pieces.empty()) pass(*pieces.back());
  if (pieces.empty() ? omit || only_present_ : present == value.text) return;
  if (pieces.empty()) return insert(chunks(code, value));
  for (const Tag* piece : pieces) {
    const bool first = piece == pieces.front();
    edits_.push_back(
        {piece->begin, piece->next - piece->begin, first ? chunks(code, value) : std::string()});
  }
}

void FieldWriter::write(int code, const Point& value, bool omit) {
  if ((omit || only_present_) && !range_.find(code)) return;
  write(code, value.x, false);
  write(code + 10, value.y, false);
  // A point that has no z in the file gets one only when it needs it.
  write(code + 20, value.z, range_.find(code) != nullptr && value.z == 0);
}

std::string FieldWriter::result() const {
  std::vector<const TagEdit*> ordered;
  for (const TagEdit& edit : edits_) ordered.push_back(&edit);
  std::stable_sort(ordered.begin(), ordered.end(),
                   [](const TagEdit* a, const TagEdit* b) { return a->at < b->at; });
  const std::string_view bytes = record_.bytes();
  std::string result;
  std::size_t copied = 0;
  for (const TagEdit* edit : ordered) {
    result.append(bytes, copied, edit->at - copied).append(edit->bytes);
    copied = edit->at + edit->length;
  }
  return result.append(bytes, copied);
}

}  // namespace velmar::drawing::dxf
