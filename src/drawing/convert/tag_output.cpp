#include <charconv>

#include "drawing/convert/tag_drawing.h"
#include "drawing/dxf/tag.h"

namespace velmar::drawing {
namespace {

constexpr std::string_view binary_mark("AutoCAD Binary DXF\r\n\x1a\0", 22);

std::string chunk_bytes(std::string_view digits) {
  std::string bytes;
  for (std::size_t at = 0; at + 1 < digits.size(); at += 2) {
    unsigned byte = 0;
    const char* const end = digits.data() + at + 2;
    const auto [stop, error] = std::from_chars(digits.data() + at, end, byte, 16);
    if (error != std::errc() || stop != end) throw Error("pairs of hexadecimal digits");
    bytes += static_cast<char>(byte);
  }
  if (digits.size() % 2 != 0) throw Error("pairs of hexadecimal digits");
  return bytes;
}

/// In binary form a piece has at most 255 bytes; a longer one becomes several.
void append_chunk(std::string& out, int code, const std::string& digits,
                  const dxf::Format& format) {
  constexpr std::size_t most = 255;
  std::string_view trimmed = digits;
  while (trimmed.ends_with(' ')) trimmed.remove_suffix(1);
  const std::string bytes = chunk_bytes(trimmed);
  std::size_t at = 0;
  do {
    const std::string piece = bytes.substr(at, most);
    dxf::append_code(out, code, format);
    out += static_cast<char>(piece.size());
    out += piece;
    at += most;
  } while (at < bytes.size());
}

/// A text where a number belongs: a text file keeps it as it is.
void append_odd(std::string& out, const TagValue& tag, const std::string& text,
                const dxf::Format& format) {
  if (format.binary) {
    throw Error(dxf::value_kind(tag.code) == dxf::ValueKind::real ? "a number" : "a whole number");
  }
  dxf::append_text(out, tag.code, text, format);
}

bool fits(std::int64_t value, dxf::ValueKind kind) {
  switch (kind) {
    case dxf::ValueKind::int16:
      return value >= -32768 && value <= 65535;
    case dxf::ValueKind::int32:
      return value >= INT32_MIN && value <= INT64_C(0xFFFFFFFF);
    case dxf::ValueKind::flag:
      return value >= 0 && value <= 255;
    default:
      return true;
  }
}

class FileText {
 public:
  explicit FileText(const dxf::Format& format) : format_(format) {
    if (format.binary) out_ = binary_mark;
  }

  void text(int code, std::string_view value) { dxf::append_text(out_, code, value, format_); }

  void begin_section(std::string_view name) {
    text(0, "SECTION");
    text(2, name);
  }
  void end_section() { text(0, "ENDSEC"); }

  void tags(const Tags& list) { tags(list, 0, list.size()); }
  void tags(const Tags& list, std::size_t from, std::size_t to) {
    for (; from < to; ++from) append_tag(out_, list[from], format_);
  }

  /// The handle goes first, the owner behind the groups in braces. A table's name goes before.
  void record(const TagRecord& record, std::string_view table = {}) {
    text(0, record.kind);
    try {
      if (!table.empty()) text(2, table);
      if (record.handle != 0) text(record.is("DIMSTYLE") ? 105 : 5, handle_text(record.handle));
      const std::size_t head = record.handle != 0 ? end_of_groups(record.tags) : 0;
      tags(record.tags, 0, head);
      if (record.owner != 0 || (!table.empty() && format_.has_subclasses())) {
        text(330, handle_text(record.owner));
      }
      tags(record.tags, head, record.tags.size());
    } catch (const Error& error) {
      throw Error(record.kind + " #" + handle_text(record.handle) + ": " + error.what());
    }
  }
  void records(const std::vector<TagRecord>& list) {
    for (const TagRecord& each : list) record(each);
  }

  std::string take() { return std::move(out_); }

 private:
  static std::size_t end_of_groups(const Tags& list) {
    std::size_t end = 0;
    bool in_group = false;
    for (std::size_t i = 0; i < list.size() && (in_group || list[i].code == 102); ++i) {
      if (list[i].code == 102) {
        in_group = std::get<std::string>(list[i].value).starts_with('{');
        if (!in_group) end = i + 1;
      }
    }
    return end;
  }

  const dxf::Format& format_;
  std::string out_;
};

void add_table(FileText& file, const TagTable& table) {
  file.record(table.head, table.name);
  file.records(table.rows);
  file.text(0, "ENDTAB");
}

void add_blocks(FileText& file, const std::vector<TagBlock>& blocks) {
  file.begin_section("BLOCKS");
  for (const TagBlock& block : blocks) {
    file.record(block.begin);
    file.records(block.entities);
    file.record(block.end);
  }
  file.end_section();
}

}  // namespace

void append_tag(std::string& out, const TagValue& tag, const dxf::Format& format) {
  if (format.binary && (tag.code < INT16_MIN || tag.code > INT16_MAX)) {
    throw Error("group code " + std::to_string(tag.code) +
                ": expected one below 32768, as binary DXF has no others");
  }
  const dxf::ValueKind kind = dxf::value_kind(tag.code);
  if (const auto* const real = std::get_if<double>(&tag.value)) {
    return dxf::append_real(out, tag.code, *real, format);
  }
  if (const auto* const integer = std::get_if<std::int64_t>(&tag.value)) {
    if (format.binary && !fits(*integer, kind)) {
      throw Error("group " + std::to_string(tag.code) + ": " + std::to_string(*integer) +
                  " does not fit in what binary DXF has for it");
    }
    return dxf::append_integer(out, tag.code, *integer, format);
  }
  const auto& text = std::get<std::string>(tag.value);
  try {
    if (kind == dxf::ValueKind::chunk && format.binary) {
      return append_chunk(out, tag.code, text, format);
    }
    if (kind != dxf::ValueKind::text && kind != dxf::ValueKind::chunk) {
      return append_odd(out, tag, text, format);
    }
  } catch (const Error& expected) {
    throw Error("group " + std::to_string(tag.code) + ": expected " + expected.what() +
                ", found \"" + text.substr(0, 40) + "\"; binary DXF has no room for it");
  }
  dxf::append_text(out, tag.code, text, format);
}

std::string file_bytes(const TagDrawing& drawing, const dxf::Format& format) {
  FileText file(format);
  file.begin_section("HEADER");
  for (const Tags& variable : drawing.header) file.tags(variable);
  file.end_section();
  if (format.has_subclasses()) {
    file.begin_section("CLASSES");
    file.records(drawing.classes);
    file.end_section();
  }
  file.begin_section("TABLES");
  for (const TagTable& table : drawing.tables) add_table(file, table);
  file.end_section();
  add_blocks(file, drawing.blocks);
  file.begin_section("ENTITIES");
  file.records(drawing.entities);
  file.end_section();
  if (format.has_subclasses()) {
    file.begin_section("OBJECTS");
    file.records(drawing.objects);
    file.end_section();
  }
  for (const TagSection& section : drawing.others) {
    file.begin_section(section.name);
    file.tags(section.head);
    file.records(section.records);
    file.end_section();
  }
  file.text(0, "EOF");
  return file.take();
}

}  // namespace velmar::drawing
